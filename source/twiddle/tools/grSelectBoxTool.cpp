#include "grSelectBoxTool.h"

#include "dgView.h"
#include "giBox2.h"
#include "grRubberBandRectangle.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

#include <cmath>

UT_DEFINE_TYPE(grSelectBoxTool, grSelectTool);

namespace
{
constexpr double click_pixels = 2; // a box no larger is a click
}

grSelectBoxTool::grSelectBoxTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grSelectTool(args, db, hooks), the_rectangle(std::make_unique<grRubberBandRectangle>())
{}

grSelectBoxTool::~grSelectBoxTool() = default;

void grSelectBoxTool::start_twiddle(const gwKeyEvent& event)
{
    the_start_point = giPoint2(event.x(), event.y());
    if (find_detail(event))
        twiddle_start(event);
}

void grSelectBoxTool::mouse_event(const gwMouseEvent& event)
{
    if (state() != grTWID_TWIDDLING || !target_view())
        return;
    the_rectangle->draw(*target_view(), the_start_point, giPoint2(event.x(), event.y()));
    twiddle_mouse(event);
}

void grSelectBoxTool::end_twiddle(const gwKeyEvent& event)
{
    the_rectangle->finish(target_view());
    if (target_view() && event.window())
    {
        const giPoint2 end(event.x(), event.y());
        if (std::abs(end.x() - the_start_point.x()) <= click_pixels &&
            std::abs(end.y() - the_start_point.y()) <= click_pixels)
            take_at(end);
        else
            take_in(giBox2(the_start_point, end));
    }
    grSelectTool::end_twiddle(event);
}
