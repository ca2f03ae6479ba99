#include "grOtherViews.h"

#include "dgS.h"
#include "dgView.h"
#include "grStdTwiddleHooks.h"
#include "grStdViewTwiddleTool.h"
#include "grViewUtils.h"
#include "utTypeID.h"

#include <algorithm>

UT_DEFINE_TYPE(grOtherViews, coReceiver);

grOtherViews::~grOtherViews() = default;

void grOtherViews::find(const grStdTwiddleTool& tool, const gwKeyEvent& event, dgView* target)
{
    clear_callbacks();
    the_views.clear();
    if (!tool.hooks())
        return;
    dgViewcoDList views;
    tool.hooks()->identify_views(event, views);
    grViewUtils::remove_view(views, target);
    for (dgView* view : views)
        if (!tool.hooks()->locked_view(view, &tool))
        {
            the_views.push_back(view);
            view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grOtherViews::view_to_be_deleted>(this));
        }
}

void grOtherViews::save_cameras(const grStdViewTwiddleTool& tool) const
{
    each([&](dgView* view, int) { tool.save_camera(view); });
}

void grOtherViews::view_to_be_deleted(void* sender, void*)
{
    std::replace(the_views.begin(), the_views.end(), static_cast<dgView*>(sender), static_cast<dgView*>(nullptr));
}
