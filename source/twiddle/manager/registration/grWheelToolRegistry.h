#pragma once

class utTypeID;

// The tool class whose tools live for one event. Defined beside the tools, which lie above the manager.
const utTypeID& gr_mouse_wheel_zoom_tool_type();
