#include "grTurnViewTool.h"

#include "grSpin.h"
#include "grStdTwiddleHooks.h"
#include "grToolResources.h"
#include "grViewRefresher.h"
#include "gwKeyEvent.h"

UT_DEFINE_TYPE(grTurnViewTool, grStdViewTwiddleTool);

grTurnViewTool::grTurnViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks)
{
    flags().can_timeout_twiddle(1);
    flags().can_save_camera(1);
    gr_read_flag(db, "rotate_about_cursor", the_about_cursor);
    if (hooks && hooks->allow_spinning())
        the_spin = std::make_unique<grSpin>(db);
}

grTurnViewTool::~grTurnViewTool() = default;

void grTurnViewTool::start_turning(const giPoint3& centre_world, const gwKeyEvent& event)
{
    the_target_centre = centre_world;
    the_last_point = giPoint2(event.x(), event.y());
    start_course(event, refresher());
}

void grTurnViewTool::record_point(const giPoint2& point)
{
    if (the_spin)
        the_spin->timer().add_mouse_event(point);
}

void grTurnViewTool::start_spinning(const giPoint2& release_point)
{
    if (!the_spin || !target_view())
        return;
    the_spin->timer().end_twiddle_event(release_point);
    if (!the_spin->timer().can_spin() || !find_spin_step(the_spin->timer()))
        return;
    the_spinning = 1;
    busy_state(grTWID_NOT_BUSY);
    the_spin->start();
    the_spin_steps = the_spin->steps();
    spin_action();
}

grIdleAction grTurnViewTool::idle_event()
{
    if (state() != grTWID_ENDED || !the_spinning || !target_view())
        return grStdViewTwiddleTool::idle_event();
    the_spin_steps = the_spin->steps();
    spin_action();
    if (the_spin->over())
        the_spinning = 0;
    return moved_in_idle_time(refresher(), !the_spin->in_frame_time() || !the_spinning);
}

void grTurnViewTool::destruction_twiddle()
{
    // What stops a spin need not draw.
    if (the_spinning && the_spin->in_frame_time() && target_view() && refresher())
        refresher()->base_idle_refresh();
    grStdViewTwiddleTool::destruction_twiddle();
}
