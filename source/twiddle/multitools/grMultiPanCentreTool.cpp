#include "grMultiPanCentreTool.h"

#include "giVector2.h"
#include "grViewOperations.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"

UT_DEFINE_TYPE(grMultiPanCentreTool, grPanCentreTool);

void grMultiPanCentreTool::do_action(const gwKeyEvent& event)
{
    find_others(event);
    if (!target_view())
        return;
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    each_other([&](dgView* view) { grViewOperations::pan(*view, step); });
    grPanCentreTool::do_action(event);
}
