#include "grPerspectiveTool.h"

#include "dgView.h"
#include "grViewOperations.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grPerspectiveTool, grOneShotViewTool);

void grPerspectiveTool::do_action(const gwKeyEvent&)
{
    dgView& view = *target_view();
    grViewOperations::perspective(view, view.camera().projection() == dgPROJECTION_PARALLEL);
}
