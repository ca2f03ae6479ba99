#include "grToolTypeRegistry.h"

#include "grIsometricTool.h"
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
