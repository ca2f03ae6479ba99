#pragma once

#include "grExport.h"
#include "utString.h"

class grTwiddleTool;

/// Makes tools by number, and knows the numbers of their names.
class GR_EXPORT grToolFactory
{
public:
    /// The number of a tool, greater than 0; any other answer means that the name is unknown.
    virtual int identify_tool(utString name) const = 0;
    /// A new tool, owned by the caller, for a number that identify_tool answered. args is what the trigger carries.
    virtual grTwiddleTool* create_tool(int tool, const utString& args) const = 0;
    virtual ~grToolFactory();

protected:
    grToolFactory() = default;
    grToolFactory(const grToolFactory&) = delete;
    grToolFactory& operator=(const grToolFactory&) = delete;
};
