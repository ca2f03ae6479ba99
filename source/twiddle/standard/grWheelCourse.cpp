#include "grWheelCourse.h"

#include "dgView.h"
#include "grViewRefresher.h"
#include "grWheelPictureRegistry.h"

#include <algorithm>
#include <utility>

namespace
{
int the_idle_calls_come = 0;

// Never destroyed: its views may be static objects.
std::shared_ptr<grWheelCourse>& the_last()
{
    static auto* const course = new std::shared_ptr<grWheelCourse>;
    return *course;
}
}

grIdleAction gr_complete_wheel_picture()
{
    const std::shared_ptr<grWheelCourse> course = grWheelCourse::last();
    return course ? course->idle() : grIDLE_DONE;
}

void gr_finish_wheel_picture()
{
    if (const std::shared_ptr<grWheelCourse> course = std::exchange(the_last(), nullptr))
        course->finish();
}

void gr_before_wheel_notch(int idle_calls_come)
{
    the_idle_calls_come = idle_calls_come;
}

std::shared_ptr<grWheelCourse> grWheelCourse::find(const Manner& manner, const dgViewcoDList& views)
{
    const std::shared_ptr<grWheelCourse>& last = the_last();
    if (!last || last->the_manner != manner)
        return nullptr;
    const dgViewcoDList& drawn = last->the_refresher->views();
    return std::equal(views.begin(), views.end(), drawn.begin(), drawn.end()) ? last : nullptr;
}

std::shared_ptr<grWheelCourse> grWheelCourse::start(const Manner& manner, std::unique_ptr<grViewRefresher> refresher)
{
    return the_last() = std::make_shared<grWheelCourse>(manner, std::move(refresher));
}

std::shared_ptr<grWheelCourse> grWheelCourse::last()
{
    return the_last();
}

void grWheelCourse::hooks_end(const grStdTwiddleHooks* hooks)
{
    if (the_last() && the_last()->the_manner.hooks == hooks)
        the_last().reset();
}

int grWheelCourse::idle_calls_come()
{
    return the_idle_calls_come;
}

grWheelCourse::grWheelCourse(const Manner& manner, std::unique_ptr<grViewRefresher> refresher)
    : the_manner(manner), the_refresher(std::move(refresher))
{
    the_refresher->base_start_twiddle();
}

grWheelCourse::~grWheelCourse() = default;

grWheelCourse::Seen grWheelCourse::seen(const dgView& view)
{
    const dgCamera& camera = view.camera();
    return {view.erasures(),
            view.renderer_width(),
            view.renderer_height(),
            camera.orientation(),
            camera.view_window(),
            camera.view_port_dc(),
            camera.projection_reference_point()};
}

void grWheelCourse::look()
{
    the_seen.clear();
    for (const dgView* view : the_refresher->views())
        the_seen.push_back(seen(*view));
}

bool grWheelCourse::left_alone() const
{
    const dgViewcoDList& views = the_refresher->views();
    return std::equal(views.begin(), views.end(), the_seen.begin(), the_seen.end(),
                      [](const dgView* view, const Seen& before) { return seen(*view) == before; });
}

void grWheelCourse::frame_drawn()
{
    look();
    the_under_way = true;
}

grIdleAction grWheelCourse::idle()
{
    the_under_way = the_under_way && left_alone() && the_refresher->base_idle_needed();
    if (!the_under_way)
        return grIDLE_DONE;
    const grIdleAction action = the_refresher->base_idle();
    look();
    the_under_way = action != grIDLE_DONE;
    return action;
}

void grWheelCourse::finish()
{
    if (std::exchange(the_under_way, false) && left_alone() && the_refresher->base_idle_needed())
        the_refresher->base_end_twiddle();
}
