#pragma once

#include "grToolFactory.h"

class grStdTwiddleHooks;
class gwResourceDB;

/// The factory of the library's tools that are not among the standard ones, each for one view: "select" (grSelectTool),
/// "select_box" (grSelectBoxTool), "show" (grShowTool), "view" (grStandardViewTool), "fit" (grFitTool) and
/// "perspective" (grPerspectiveTool). The assembly asks it after the application's factory and the standard one.
class GR_EXPORT grExtraToolFactory : public grToolFactory
{
public:
    /// Both are handed to every tool, are not owned and must outlive the tools; each may be null.
    grExtraToolFactory(grStdTwiddleHooks* hooks, const gwResourceDB* db) : the_hooks(hooks), the_resource_db(db) {}

    /// The tool's number, or 0 for any other text; case counts.
    int identify_tool(utString name) const override;
    /// Null for a number that is none of a tool's.
    grTwiddleTool* create_tool(int tool, const utString& args) const override;

private:
    grStdTwiddleHooks* the_hooks;
    const gwResourceDB* the_resource_db;
};
