#include "grApertureTool.h"

#include "dgView.h"
#include "giPoint2.h"
#include "grRubberBandRectangle.h"
#include "grStdTwiddleHooks.h"
#include "grViewRefresher.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grApertureTool, grStdViewTwiddleTool);

grApertureTool::grApertureTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks), the_rectangle(std::make_unique<grRubberBandRectangle>())
{}

grApertureTool::~grApertureTool() = default;

void grApertureTool::start_twiddle(const gwKeyEvent& event)
{
    the_press = event;
    start_view_twiddle(event);
}

giPoint2 grApertureTool::first_corner(const gwPositionalEvent& current) const
{
    if (args() == "centre")
        return giPoint2(2 * the_press.x() - current.x(), 2 * the_press.y() - current.y());
    return giPoint2(the_press.x(), the_press.y());
}

void grApertureTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    // The scene is not refreshed: that it need not be drawn is what rubber banding is for.
    the_rectangle->draw(*target_view(), first_corner(event), giPoint2(event.x(), event.y()));
    twiddle_mouse(event);
}

void grApertureTool::end_twiddle(const gwKeyEvent& event)
{
    the_rectangle->finish(target_view());
    if (!detail())
        return;
    // Corners mean nothing without their view.
    if (event.window() && target_view() && hooks())
    {
        const giPoint2 corner = first_corner(event);
        gwKeyEvent first = the_press;
        first.initialise_key(the_press.key_type(), the_press.key_number(), the_press.transition(), the_press.window(),
                             static_cast<int>(corner.x()), static_cast<int>(corner.y()), the_press.modifiers(),
                             the_press.delta());
        hooks()->aperture_defined(first, event);
    }
    if (refresher())
        refresher()->base_end_twiddle();
    twiddle_end(event);
    save_camera();
}
