#include "grOtherViews.h"

#include "dgS.h"
#include "dgView.h"
#include "grStdTwiddleHooks.h"
#include "grStdViewTwiddleTool.h"
#include "grViewUtils.h"
#include "utTypeID.h"

#include <algorithm>
#include <utility>

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
    // What is asked may close any of them. Until all are asked there are no others, for events that arrive meanwhile.
    const auto closed = [](dgView* view) { return !dgS::views().contains(view); };
    std::vector<dgView*> found;
    for (dgView* view : views)
        if (!closed(view) && !tool.hooks()->locked_view(view, &tool))
            found.push_back(view);
    std::erase_if(found, closed);
    for (dgView* view : found)
        view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grOtherViews::view_to_be_deleted>(this));
    the_views = std::move(found);
}

void grOtherViews::save_cameras(const grStdViewTwiddleTool& tool) const
{
    each([&](dgView* view, int) { tool.save_camera(view); });
}

void grOtherViews::view_to_be_deleted(void* sender, void*)
{
    std::replace(the_views.begin(), the_views.end(), static_cast<dgView*>(sender), static_cast<dgView*>(nullptr));
}
