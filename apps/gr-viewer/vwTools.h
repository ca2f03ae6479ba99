#pragma once

#include "grToolFactory.h"

class grStdTwiddleHooks;

/// The viewer's own tools, beside those of the library.
///     perspective         show the view in perspective, or no longer
class vwTools : public grToolFactory
{
public:
    /// hooks is not owned, must outlive the tools, and may be null where none are made.
    explicit vwTools(grStdTwiddleHooks* hooks) : the_hooks(hooks) {}

    int identify_tool(utString name) const override;
    grTwiddleTool* create_tool(int tool, const utString& args) const override;

private:
    grStdTwiddleHooks* the_hooks;
};
