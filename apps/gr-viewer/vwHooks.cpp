#include "vwHooks.h"

#include "dgView.h"
#include "grStringConverter.h"
#include "grViewPaperParent.h"

#include "gwResourceDB.h"

namespace
{
constexpr double standard_framerate = 20, most_framerate = 1000;
}

vwHooks::vwHooks(const gwResourceDB& db, double framerate, vwRefresher refresher)
    : grStdTwiddleHooks(&db), the_framerate(framerate)
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
