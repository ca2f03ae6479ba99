#include "grNoOpTool.h"

#include "utTypeID.h"

UT_DEFINE_TYPE(grNoOpTool, grStdViewTwiddleTool);

void grNoOpTool::start_twiddle(const gwKeyEvent&) {}

void grNoOpTool::end_twiddle(const gwKeyEvent&) {}
