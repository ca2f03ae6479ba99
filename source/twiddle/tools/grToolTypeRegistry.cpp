#include "grToolTypeRegistry.h"
#include "grWheelToolRegistry.h"

#include "grIsometricTool.h"
#include "grMouseWheelZoomTool.h"
#include "grRotateViewTool.h"
#include "grSpaceballTool.h"
#include "grTrackballTool.h"

const utTypeID& gr_trackball_tool_type()
{
    return grTrackballTool::ut_static_type();
}

const utTypeID& gr_spaceball_tool_type()
{
    return grSpaceballTool::ut_static_type();
}

const utTypeID& gr_isometric_tool_type()
{
    return grIsometricTool::ut_static_type();
}

const utTypeID& gr_rotate_view_tool_type()
{
    return grRotateViewTool::ut_static_type();
}

const utTypeID& gr_mouse_wheel_zoom_tool_type()
{
    return grMouseWheelZoomTool::ut_static_type();
}

int gr_tool_is_kind_of(const grStdTwiddleTool& tool, const utTypeID& type)
{
    return tool.ut_is_kind_of(type);
}
