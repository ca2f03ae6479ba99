#include "vwHooks.h"

#include "dgRenderer.h"
#include "dgView.h"
#include "grStdTwiddleTool.h"
#include "grStringConverter.h"
#include "grTimeoutRendererCache.h"
#include "grTwiddleOverlayCallback.h"
#include "grViewPaperParent.h"
#include "grViewRefresherTimeout.h"

#include "gwResourceDB.h"

namespace
{
constexpr double standard_framerate = 20, most_framerate = 1000;

// The time-out refresher shows no overlays; the viewer's frame times are one.
class TimeoutRefresher : public grViewRefresherTimeout
{
public:
    using grViewRefresherTimeout::grViewRefresherTimeout;

    void refresh() override
    {
        grViewRefresherTimeout::refresh();
        if (use_full_refresh())
            return;
        for (int i = 0; i < nviews(); ++i)
        {
            views()[i]->renderer()->select_buffer(dgFRONT_BUFFER);
            grTwiddleOverlayCallback::call_callback(*views()[i]);
        }
    }
};
}

vwHooks::vwHooks(const gwResourceDB& db, double framerate, vwRefresher refresher)
    : grStdTwiddleHooks(&db), the_framerate(framerate), the_refresher(refresher)
{
    allow_spinning(1);
    utString text;
    if (the_framerate <= 0 && db.get_resource("framerate", text))
        grStringConverter::to_double(text, the_framerate);
    if (!(the_framerate > 0 && the_framerate <= most_framerate))
        the_framerate = standard_framerate;
    use_refresher_fast(refresher != vwREFRESHER_FULL);
    enable_timeout_twiddling(the_framerate);
    if (refresher != vwREFRESHER_TIMEOUT)
        disable_timeout_twiddling(); // the rate stays
}

dgView* vwHooks::identify_views(const gwKeyEvent& event, dgViewcoDList& views)
{
    dgView* target = grStdTwiddleHooks::identify_views(event, views);
    for (int i = 0; i < views.count(); ++i)
        if (grViewPaperParent::ut_dynamic_cast(grView::contains(views[i])))
        {
            dgView* sheet = views[i];
            views.remove_at(i);
            views.add_last(sheet);
            break;
        }
    return target;
}

grViewRefresher* vwHooks::view_refresher(const grStdTwiddleTool* tool, const dgViewcoDList& views)
{
    if (the_refresher != vwREFRESHER_TIMEOUT || !tool || !tool->flags().can_timeout_twiddle())
        return grStdTwiddleHooks::view_refresher(tool, views);
    auto* refresher = new TimeoutRefresher(views, &timeout_renderer_cache(), the_framerate, 1, 1, 1);
    refresher->allow_full_refresh(allow_full_refresh());
    return refresher;
}
