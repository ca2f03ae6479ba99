#include "grSpaceballSettings.h"

#include "doublecoSList.h"
#include "grToolResources.h"
#include "gwSpaceballEvent.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace
{
bool read_axes(const gwResourceDB* db, std::array<int, 6>& axes)
{
    utString text;
    return db && db->get_resource("spaceball_axes", text) && grStringConverter::to_axes(text, axes);
}

bool read_signs(const gwResourceDB* db, std::array<double, 6>& signs)
{
    utString text;
    doublecoSList numbers;
    if (!db || !db->get_resource("spaceball_signs", text) || !grStringConverter::to_doubles(text, numbers) ||
        numbers.count() != static_cast<int>(signs.size()))
        return false;
    for (int i = 0; i < numbers.count(); ++i)
        if (!std::isfinite(numbers[i]))
            return false;
    for (int i = 0; i < numbers.count(); ++i)
        signs[static_cast<std::size_t>(i)] = numbers[i];
    return true;
}
}

grSpaceballSettings::grSpaceballSettings(const gwResourceDB* db)
{
    read_axes(db, the_axes);
    read_signs(db, the_signs);
    gr_read_number(db, "spaceball_rotation_gain", the_rotation_gain);
    gr_read_number(db, "spaceball_translation_gain", the_translation_gain);
    double zone = 0;
    if (gr_read_number(db, "spaceball_dead_zone", zone) && zone >= 0 && zone < 1)
        the_dead_zone = zone;
    gr_read_flag(db, "spaceball_dominant_axis", the_dominant_axis);
}

void grSpaceballSettings::motion(const gwSpaceballEvent& event, giVector3& rotation, giVector3& translation) const
{
    const giVector3& t = event.translation();
    const giVector3& r = event.rotation();
    const double device[] = {t.x(), t.y(), t.z(), r.x(), r.y(), r.z()};
    double axes[6];
    for (std::size_t i = 0; i < 6; ++i)
    {
        const double deflection = device[the_axes[i]];
        const double beyond = std::abs(deflection) - the_dead_zone;
        axes[i] = beyond > 0 ? std::copysign(beyond / (1 - the_dead_zone), deflection) : 0.0;
    }
    if (the_dominant_axis)
    {
        const double* most = std::max_element(std::begin(axes), std::end(axes),
                                              [](double a, double b) { return std::abs(a) < std::abs(b); });
        for (double& axis : axes)
            if (&axis != most)
                axis = 0;
    }
    for (std::size_t i = 0; i < 6; ++i)
        axes[i] *= the_signs[i];
    translation = giVector3(axes[0], axes[1], axes[2]) * the_translation_gain;
    rotation = giVector3(axes[3], axes[4], axes[5]) * the_rotation_gain;
}
