#include "gwSpaceballHid.h"

#include "gwSpaceballReports.h"

#include <algorithm>

namespace
{
constexpr std::size_t axes_size = 6; // bytes of three numbers
constexpr int most_buttons = 32;

void read_axes(const unsigned char* bytes, int (&axes)[3])
{
    for (int i = 0; i < 3; ++i)
        axes[i] = static_cast<std::int16_t>(bytes[2 * i] | bytes[2 * i + 1] << 8);
}
}

void gwSpaceballHid::report(const unsigned char* bytes, std::size_t count, gwSpaceballReports& reports)
{
    if (count < 2)
        return;
    const unsigned char* const data = bytes + 1;
    const std::size_t size = count - 1;
    if (bytes[0] == 1 && size >= axes_size)
    {
        flush(reports);
        read_axes(data, the_displacement);
        the_waiting = 1;
        if (size >= 2 * axes_size)
        {
            read_axes(data + axes_size, the_turn);
            flush(reports);
        }
    }
    else if (bytes[0] == 2 && size >= axes_size)
    {
        read_axes(data, the_turn);
        the_waiting = 1;
        flush(reports);
    }
    else if (bytes[0] == 3)
    {
        flush(reports);
        std::uint32_t buttons = 0;
        for (std::size_t i = 0; i < std::min<std::size_t>(size, most_buttons / 8); ++i)
            buttons |= std::uint32_t{data[i]} << 8 * i;
        const std::uint32_t changed = buttons ^ the_buttons;
        the_buttons = buttons;
        for (int i = 0; i < most_buttons; ++i)
            if (changed >> i & 1)
                reports.button(i, buttons >> i & 1);
    }
}

void gwSpaceballHid::flush(gwSpaceballReports& reports)
{
    if (!the_waiting)
        return;
    the_waiting = 0;
    // Down and towards the user become up and away from the user.
    const auto turned = [](const int(&axes)[3], int(&result)[3])
    {
        result[0] = axes[0];
        result[1] = -axes[2];
        result[2] = -axes[1];
    };
    int translation[3], rotation[3];
    turned(the_displacement, translation);
    turned(the_turn, rotation);
    reports.motion(translation, rotation, 0);
}
