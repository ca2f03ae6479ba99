#pragma once

#include "grExport.h"
#include "grStdToolFactoryOptions.h"

/// An entry of the options stack of grStdToolFactory: options, with the id by which the one who pushed them pairs that
/// with taking them off again. Ids are unique in the process and count from 1; each factory's own first entry has one.
class GR_EXPORT grStdToolFactoryOptionsPair
{
public:
    /// Copies the options and draws the next id.
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
