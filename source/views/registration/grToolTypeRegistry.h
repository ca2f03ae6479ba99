#pragma once

class grStdTwiddleTool;
class utTypeID;

// The tool classes that the default table of twiddle locks names. Defined beside the tools, which lie above the views.
const utTypeID& gr_trackball_tool_type();
const utTypeID& gr_spaceball_tool_type();
const utTypeID& gr_isometric_tool_type();
const utTypeID& gr_rotate_view_tool_type();

/// 1 when a tool is of a type or one derived from it.
int gr_tool_is_kind_of(const grStdTwiddleTool& tool, const utTypeID& type);
