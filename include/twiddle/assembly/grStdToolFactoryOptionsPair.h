#pragma once

#include "grExport.h"
#include "grStdToolFactoryOptions.h"

/// Options with an id of their own, unique in the process and counted from 1.
class GR_EXPORT grStdToolFactoryOptionsPair
{
public:
    /// Copies the options.
    explicit grStdToolFactoryOptionsPair(const grStdToolFactoryOptions& options);

    int id() const { return the_id; }
    const grStdToolFactoryOptions& options() const { return the_options; }

protected:
    grStdToolFactoryOptionsPair(const grStdToolFactoryOptionsPair&) = delete;
    grStdToolFactoryOptionsPair& operator=(const grStdToolFactoryOptionsPair&) = delete;

private:
    int the_id;
    grStdToolFactoryOptions the_options;
};
