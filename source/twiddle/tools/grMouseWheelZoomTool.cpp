#include "grMouseWheelZoomTool.h"

#include "apHighResTime.h"
#include "dgS.h"
#include "dgView.h"
#include "giPoint2.h"
#include "giVector2.h"
#include "grPanCentreTool.h"
#include "grPaperMove.h"
#include "grToolResources.h"
#include "grViewRefresher.h"
#include "grZoomTool.h"
#include "gwKeyEvent.h"
#include "utTypeID.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double smallest_travel = 0.001;

struct WheelSettings
{
    int disabled = 0;
    int about_middle = 1;
    double increment = 0.1;
    double control_multiplier = 5.0;
    double delay_seconds = 0.2;
    int inverted = 0;
    int out_about_middle = 0;
    int reversible = 0;
    int proportional = 0;
};

WheelSettings the_settings;
int the_settings_read = 0;

WheelSettings settings_from(const gwResourceDB* db)
{
    WheelSettings settings;
    gr_read_flag(db, "mouse_wheel_zoom_disable", settings.disabled);
    gr_read_flag(db, "mouse_wheel_zoom_centre", settings.about_middle);
    gr_read_number(db, "mouse_wheel_delay", settings.delay_seconds);
    gr_read_flag(db, "invert_zoom", settings.inverted);
    gr_read_flag(db, "mouse_wheel_zoom_out_centre", settings.out_about_middle);
    gr_read_flag(db, "mouse_wheel_zoom_reversible", settings.reversible);
    gr_read_flag(db, "mouse_wheel_zoom_proportional", settings.proportional);

    // A factor of 0 or less would leave a view window that nothing can be seen through.
    double number = 0;
    if (gr_read_number(db, "mouse_wheel_zoom_increment", number) && std::abs(number) < 1)
        settings.increment = number;
    if (gr_read_number(db, "mouse_wheel_zoom_ctl_multiplier", number) && number > 0)
        settings.control_multiplier = number;
    return settings;
}

// The wheel is easily turned while its button is pressed or let go, which pans or zooms. Types are compared by exact
// name: tools derived from these do not count, nor do the wheel tools themselves.
bool follows_too_closely()
{
    utString name;
    double end_time = 0;
    grTwiddleTool::get_last_twiddle_details(name, end_time);
    const char* const names[] = {grPanCentreTool::ut_static_type().name(), grZoomTool::ut_static_type().name(),
                                 "grMultiPanCentreTool", "grMultiZoomTool"};
    for (const char* held_back_after : names)
        if (name == held_back_after)
            return !(apHighResTime::time_diff(end_time, apHighResTime::time()) > the_settings.delay_seconds);
    return false;
}

double factor_of(double travel, int modifiers)
{
    const double multiplier = modifiers & gwMODIFIER_CONTROL ? the_settings.control_multiplier : 1.0;
    const double in = (1 - the_settings.increment) / multiplier;
    const double out = the_settings.reversible ? 1 / in : (1 + the_settings.increment) * multiplier;
    const double factor = travel > 0 ? in : out;
    return the_settings.proportional ? std::pow(factor, std::abs(travel)) : factor;
}

// From the pointer to the middle of the viewport, as a share of it. The offset of the pointer and the enlarged size are
// part of how the wheel feels and are kept as they are.
giVector2 shift_to_middle(const giBox2& view_port, const gwKeyEvent& event)
{
    const giPoint2 pointer(event.x() + 0.5, event.y() - 1.0);
    const giVector2 size(std::max(view_port.width(), 1.0) + 1, std::max(view_port.height(), 1.0) + 1);
    return (view_port.middle() - pointer) / size;
}
}

UT_DEFINE_TYPE(grMouseWheelZoomTool, grStdViewTwiddleTool);

grMouseWheelZoomTool::grMouseWheelZoomTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks)
    : grStdViewTwiddleTool(args, db, hooks)
{
    read_resources(db);
}

void grMouseWheelZoomTool::read_resources(const gwResourceDB* db)
{
    if (db && !the_settings_read)
        reread_resources(db);
}

void grMouseWheelZoomTool::reread_resources(const gwResourceDB* db)
{
    the_settings = settings_from(db);
    the_settings_read = 1;
}

void grMouseWheelZoomTool::start_twiddle(const gwKeyEvent& event)
{
    if (start_wheel_step(event) && do_action(event))
        refresh_views();
}

int grMouseWheelZoomTool::start_wheel_step(const gwKeyEvent& event)
{
    if (the_settings.disabled || follows_too_closely())
        return 0;
    if (!target_view(event))
        return 0;
    // The hooks hear of a wheel step before they are asked what it is about, unlike with the other tools.
    twiddle_start(event);
    if (!find_detail(event))
        return 0;
    if (refresher())
        refresher()->base_start_twiddle();
    return 1;
}

dgView* grMouseWheelZoomTool::target_view(const gwKeyEvent& event)
{
    return dgS_find_view(event.window(), giPoint2(event.x(), event.y()));
}

int grMouseWheelZoomTool::do_action(const gwKeyEvent& event) const
{
    return zoom_and_pan(target_view(), target_view(), event);
}

int grMouseWheelZoomTool::zoom_and_pan(dgView* zoomed, dgView* measured, const gwKeyEvent& event)
{
    double travel = event.delta();
    if (std::abs(travel) < smallest_travel)
        return 0;
    if (the_settings.inverted)
        travel = -travel;

    const bool about_pointer =
        !zoomed->pan_forbidden() && !the_settings.about_middle && !(travel < 0 && the_settings.out_about_middle);
    const grPaperMove paper(*zoomed);
    dgCamera& camera = zoomed->camera();
    giVector2 shift;
    if (about_pointer)
    {
        shift = shift_to_middle(measured->camera().view_port_dc(), event);
        camera.pan_view(shift);
    }
    camera.zoom(factor_of(travel, event.modifiers()));
    if (about_pointer)
        camera.pan_view(-shift);
    return 1;
}
