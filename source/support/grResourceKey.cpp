#include "grResourceKey.h"

#include "apString.h"
#include "doublecoSList.h"
#include "grActionReader.h"
#include "grStringConverter.h"
#include "gsColour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace
{
constexpr double infinite = std::numeric_limits<double>::infinity();

// Limits of numbers, by grResourceKey::Limits. One that is not included is the next number.
const struct
{
    double low, high;
    int low_included, high_included;
    const char* text;
} limits_of_numbers[] = {
    {-infinite, infinite, 0, 0, ""},      {0, infinite, 0, 0, "above 0"},    {0, infinite, 1, 0, "0 or more"},
    {1, infinite, 1, 0, "1 or more"},     {0, 1, 1, 0, "from 0 to below 1"}, {-1, 1, 0, 0, "between -1 and 1"},
    {1e-5, 1, 1, 1, "from 0.00001 to 1"},
};

constexpr grResourceKey keys[] = {
    {"translations", grRESOURCE_ACTIONS, grResourceKey::ANY, "", "the actions"},
    {"trackball_virtual_radius", grRESOURCE_NUMBER, grResourceKey::UP_TO_1, "0.4",
     "radius of the ball as a share of the view, 1e-5 to 1"},
    {"trackball_icon_radius", grRESOURCE_NUMBER, grResourceKey::FROM_0, "0",
     "radius of the sphere drawn around the centre, as a share of the view's height"},
    {"mouse_wheel_zoom_disable", grRESOURCE_FLAG, grResourceKey::ANY, "no", "the wheel does nothing"},
    {"mouse_wheel_zoom_centre", grRESOURCE_FLAG, grResourceKey::ANY, "yes",
     "zooms about the middle of the view, not about the pointer"},
    {"mouse_wheel_zoom_out_centre", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "when zooming about the pointer, zooms out about the middle"},
    {"mouse_wheel_zoom_increment", grRESOURCE_NUMBER, grResourceKey::BELOW_1_EACH_WAY, "0.1", "share of one step"},
    {"mouse_wheel_zoom_ctl_multiplier", grRESOURCE_NUMBER, grResourceKey::ABOVE_0, "5", "while control is held"},
    {"mouse_wheel_delay", grRESOURCE_NUMBER, grResourceKey::FROM_0, "0.2",
     "seconds after a zoom or a pan to the centre in which one wheel step is ignored"},
    {"invert_zoom", grRESOURCE_FLAG, grResourceKey::ANY, "no", "reverses wheel and zoom drag"},
    {"view_index_seconds", grRESOURCE_NUMBER, grResourceKey::FROM_0, "0.4",
     "time of the way to a saved camera, 0: at once"},
    {"camera_cache_size", grRESOURCE_INTEGER, grResourceKey::FROM_1, "50", "cameras kept for each view"},
    {"framerate", grRESOURCE_NUMBER, grResourceKey::FROM_0, "0",
     "frames a second that a drag asks for, of an assembly that is made without hooks; 0: none"},
    {"disable_refresher_fast", grRESOURCE_FLAG, grResourceKey::ANY, "no", "hooks never use the fast refresher"},
    {"smooth_edges", grRESOURCE_FLAG, grResourceKey::ANY, "yes",
     "gr-viewer smooths the edges of views at rest; other applications set `dgRenderer::accumulate`"},

    {"mouse_wheel_zoom_reversible", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "ten steps in and ten out leave the picture at 0.9^10 x 1.1^10 = 0.904 of its scale; set, a step out undoes a "
     "step in exactly"},
    {"mouse_wheel_zoom_proportional", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "an event zooms by a whole step whatever its travel, so that 30 events of a fine wheel are 30 steps; set, they "
     "are the one notch that they are together"},
    {"spin_time_true", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "the step of one mouse event is made at each idle call: 400 pixels a second spin on at 324 with a mouse of 60 Hz "
     "and at 48 with one of 1000 Hz; set, speed is measured by the clock, and is the hand's at all rates"},
    {"spin_decay", grRESOURCE_NUMBER, grResourceKey::FROM_0, "0",
     "a spin never ends; a number of seconds is the time in which its speed halves"},
    {"spin_in_frame_time", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "every step of a spin draws everything, whatever it takes; set, steps hold the frame rate as a drag does, and the "
     "spin's last picture is complete"},
    {"trackball_round", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "on a view twice as wide as it is high the ball is an ellipse, and a vertical drag turns twice as far; set, it "
     "is round"},
    {"rotate_about_cursor", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "what is looked at closely swings out of the picture; set, the view turns about the point of the surface under "
     "the pointer"},

    {"spaceball_rotation_gain", grRESOURCE_NUMBER, grResourceKey::ANY, "1",
     "multiplies rotations; 1 is 3 radians a second at full deflection"},
    {"spaceball_translation_gain", grRESOURCE_NUMBER, grResourceKey::ANY, "1",
     "multiplies translations; 1 is 1.2 heights of the view a second"},
    {"spaceball_axes", grRESOURCE_SIX_AXES, grResourceKey::ANY, "x,y,z,rx,ry,rz",
     "the device's axis for right, up, towards the user, and the turns about these"},
    {"spaceball_signs", grRESOURCE_SIX_NUMBERS, grResourceKey::ANY, "1,1,1,1,1,1",
     "multiplies these six; -1 turns a direction round"},
    {"spaceball_dead_zone", grRESOURCE_NUMBER, grResourceKey::FROM_0_BELOW_1, "0",
     "deflections up to this share of the full one count as none"},
    {"spaceball_dominant_axis", grRESOURCE_FLAG, grResourceKey::ANY, "no", "only the axis that is deflected most acts"},

    {"xor_rubberbanding", grRESOURCE_FLAG, grResourceKey::ANY, "yes",
     "no: redraw where that is fast and there is no overlay; yes changes nothing"},
    {"slow_retry_time_rubberbanding", grRESOURCE_NUMBER, grResourceKey::ABOVE_0, "",
     "seconds after which a slow view is tried again, 30 without it; also becomes the minimum frame rate, 20 without "
     "it"},
    {"xor_colour", grRESOURCE_COLOUR, grResourceKey::ANY, "1 1 1",
     "the rubber band colour: `1 0.5 0` or `8bit 255 128 0`"},
    {"set_default_colour_in_xor_mode", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "yes: structures start in that colour"},
    {"calculate_colour_in_xor_mode", grRESOURCE_FLAG, grResourceKey::ANY, "no",
     "yes: colours are chosen so that they show as asked for over the background"},
    {"xor_mode_with_stencil_planes", grRESOURCE_FLAG, grResourceKey::ANY, "yes",
     "lines of one item that cross invert their pixels once"},
    {"overlay_rubberbanding", grRESOURCE_FLAG, grResourceKey::ANY, "yes", "has no effect"},
};

bool is_finite(double number)
{
    return std::isfinite(number);
}
}

std::span<const grResourceKey> grResourceKey::all()
{
    return keys;
}

const grResourceKey* grResourceKey::find(const utString& name)
{
    const auto found =
        std::find_if(std::begin(keys), std::end(keys), [&](const grResourceKey& key) { return name == key.name(); });
    return found == std::end(keys) ? nullptr : found;
}

int grResourceKey::accepts(const utString& value, std::string& complaint) const
{
    const auto refuse = [&](const std::string& why)
    {
        complaint = ap_quoted(value.view()) + why;
        return 0;
    };
    switch (the_kind)
    {
    case grRESOURCE_FLAG:
    {
        int flag = 0;
        return grStringConverter::to_bool(value, flag) ? 1 : refuse(" is neither yes nor no");
    }
    case grRESOURCE_INTEGER:
    case grRESOURCE_NUMBER:
    {
        int whole = 0;
        double number = 0;
        if (the_kind == grRESOURCE_INTEGER && !grStringConverter::to_int(value, whole))
            return refuse(" is no whole number");
        if (!grStringConverter::to_double(value, number) || !is_finite(number))
            return refuse(" is no number");
        const auto& limits = limits_of_numbers[the_limits];
        const bool within = (limits.low_included ? number >= limits.low : number > limits.low) &&
                            (limits.high_included ? number <= limits.high : number < limits.high);
        return within ? 1 : refuse(std::string(" is not ") + limits.text);
    }
    case grRESOURCE_COLOUR:
    {
        gsColour colour;
        return grStringConverter::to_colour(value, colour) ? 1
                                                           : refuse(" is no colour such as 1 0.5 0 or 8bit 255 128 0");
    }
    case grRESOURCE_SIX_NUMBERS:
    {
        doublecoSList numbers;
        const bool right = grStringConverter::to_doubles(value, numbers) && numbers.count() == 6 &&
                           std::all_of(numbers.begin(), numbers.end(), is_finite);
        return right ? 1 : refuse(" are not six numbers");
    }
    case grRESOURCE_SIX_AXES:
    {
        std::array<int, 6> axes{};
        return grStringConverter::to_axes(value, axes) ? 1 : refuse(" are not six of x, y, z, rx, ry and rz");
    }
    case grRESOURCE_ACTIONS:
    {
        grActionReader reader(value);
        while (reader.next())
            continue;
        complaint = reader.failed() ? reader.complaint() : complaint;
        return !reader.failed();
    }
    }
    return 0;
}
