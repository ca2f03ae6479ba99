#include "grWheelRefresher.h"

#include "grWheelCourse.h"
#include "utTypeID.h"

#include <utility>

UT_DEFINE_TYPE(grWheelRefresher, grViewRefresher);

grWheelRefresher::grWheelRefresher(const dgViewcoDList& views, std::shared_ptr<grWheelCourse> course)
    : grViewRefresher(views), the_course(std::move(course))
{}

grWheelRefresher::~grWheelRefresher() = default;

void grWheelRefresher::refresh()
{
    grViewRefresher& frames = the_course->refresher();
    for (int i = 0; i < nviews(); ++i)
        frames.set_twiddle_icon(twiddle_icons()[i], views()[i]);
    refresh_by(frames);
    the_course->frame_drawn();
}

// The course goes on; only a picture of another quality than the views' own must not stay.
void grWheelRefresher::end_twiddle()
{
    for (dgView* view : views())
        the_course->refresher().set_twiddle_icon(nullptr, view);
    if (forced_redraw())
        refresh_at_end_of_twiddle();
}
