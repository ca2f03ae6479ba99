#include "grRedraw.h"

#include "dgRenderer.h"
#include "dgS.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grViewListUtils.h"

#include <algorithm>
#include <set>

namespace
{
void redraw(dgRenderer& renderer)
{
    if (grCanvas* canvas = grCanvas::find_canvas(&renderer))
        return canvas->redraw();
    dgViewcoDList views;
    for (dgView* view : dgS::views())
        if (view->renderer() == &renderer)
            views.add_first(view);
    grViewListUtils::refresh_views_and_rubber_banding(views, dgRenderercoDList{&renderer});
}
}

void gr_redraw(const std::vector<dgRenderer*>& renderers, const std::vector<dgView*>& views)
{
    std::set<dgRenderer*> drawn;
    for (dgRenderer* renderer : renderers)
        if (renderer && drawn.insert(renderer).second &&
            std::any_of(views.begin(), views.end(), [=](const dgView* view) { return view->renderer() == renderer; }))
            redraw(*renderer);
}
