#include "grMultiPanCentreTool.h"

#include "dgView.h"
#include "giVector2.h"
#include "grViewUtils.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grMultiPanCentreTool, grPanCentreTool);

void grMultiPanCentreTool::save_camera() const
{
    the_others.save_cameras(*this);
    grPanCentreTool::save_camera();
}

void grMultiPanCentreTool::do_action(const gwKeyEvent& event)
{
    the_others.find(*this, event, target_view());
    if (!target_view())
        return;
    const giVector2 step = grViewUtils::step_to_centre(target_view(), event);
    the_others.each([&](dgView* view, int) { grViewUtils::pan(view, step); });
    if (target_view())
        grPanCentreTool::do_action(event);
}
