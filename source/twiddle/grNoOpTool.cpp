#include "grNoOpTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grNoOpTool, grStdViewTwiddleTool);

grNoOpTool* grNoOpTool::ut_dynamic_cast(grTwiddleTool* tool)
{
    return ut_cast<grNoOpTool>(tool);
}

const grNoOpTool* grNoOpTool::ut_dynamic_cast(const grTwiddleTool* tool)
{
    return ut_cast<grNoOpTool>(tool);
}

void grNoOpTool::start_twiddle(const gwKeyEvent&) {}

void grNoOpTool::end_twiddle(const gwKeyEvent&) {}
