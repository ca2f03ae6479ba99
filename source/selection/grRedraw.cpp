#include "grRedraw.h"

#include "dgRenderer.h"
#include "dgS.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grViewListUtils.h"

void gr_redraw(dgRenderer& renderer)
{
    if (grCanvas* canvas = grCanvas::find_canvas(&renderer))
        return canvas->redraw();
    dgViewcoDList views;
    for (dgView* view : dgS::views())
        if (view->renderer() == &renderer)
            views.add_first(view);
    grViewListUtils::refresh_views_and_rubber_banding(views, dgRenderercoDList{&renderer});
}
