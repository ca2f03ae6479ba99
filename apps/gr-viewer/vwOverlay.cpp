#include "vwOverlay.h"

#include "vwParts.h"

#include "apNumber.h"
#include "dgView.h"
#include "grSelection.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <utility>

namespace
{
// Device pixels.
constexpr double margin = 12, axis_length = 34, text_height = 13, line_height = 18, longest_bar = 160;

const gsColour axis_colours[] = {gsColour(0.90, 0.30, 0.28), gsColour(0.38, 0.75, 0.33), gsColour(0.35, 0.55, 0.95)};
const gsColour ground(0.07, 0.08, 0.10), on_ground(0.93, 0.94, 0.96), faint(0.50, 0.53, 0.57), marked(1.0, 0.65, 0.25);

// The largest of 1, 2 and 5 times a power of ten that is no more than a number.
double round_length(double most)
{
    const double power = std::pow(10, std::floor(std::log10(most)));
    return power * (most >= 5 * power ? 5 : most >= 2 * power ? 2 : 1);
}
}

gsColour vwOverlay::colour() const
{
    return the_dark ? gsColour(0.12, 0.13, 0.15) : on_ground;
}

int vwOverlay::font()
{
    if (const std::function<int()> source = std::exchange(the_font_source, nullptr))
        the_font = source();
    return the_font;
}

void vwOverlay::draw(dgView& view)
{
    if (!the_axes && !the_part_list && !the_help)
        return;
    the_pixels.clear();
    if (the_axes && !the_help)
    {
        add_axes(view);
        add_scale_bar(view);
    }
    if (the_part_list && !the_help)
        add_part_list(view);
    if (the_help)
        add_help(view);
    the_pixels.draw(view);
}

// Those that point away first, so that the others lie on them.
void vwOverlay::add_axes(const dgView& view)
{
    const double x = view.camera().view_port_dc().width() - margin - axis_length - text_height;
    const double y = margin + axis_length + text_height;
    std::pair<double, int> order[3];
    giVector3 seen[3];
    for (int axis = 0; axis < 3; ++axis)
    {
        seen[axis] = view.camera().orientation().transform(giVector3(axis == 0, axis == 1, axis == 2));
        order[axis] = {seen[axis].z(), axis};
    }
    std::sort(std::begin(order), std::end(order));
    for (const auto& [depth, axis] : order)
    {
        const giVector3 end = seen[axis] * axis_length, name = seen[axis] * (axis_length + 9);
        the_pixels.line(x, y, x + end.x(), y + end.y(), axis_colours[axis], 2);
        the_pixels.text(x + name.x() - 4, y + name.y() - 5, std::string(1, static_cast<char>('X' + axis)), text_height,
                        axis_colours[axis], font());
    }
}

// In perspective lengths differ with depth.
void vwOverlay::add_scale_bar(const dgView& view)
{
    const dgCamera& camera = view.camera();
    const double pixels = std::min(longest_bar, camera.view_port_dc().width() / 3);
    if (camera.projection() != dgPROJECTION_PARALLEL || pixels < 20)
        return;
    const double length = round_length(pixels / camera.pixels_per_unit()),
                 end = margin + length * camera.pixels_per_unit();
    the_pixels.line(margin, margin, end, margin, colour(), 2);
    for (const double x : {margin, end})
        the_pixels.line(x, margin - 4, x, margin + 5, colour(), 2);
    the_pixels.text(margin, margin + 9, ap_number_text(length), text_height, colour(), font());
}

// As many as there is room for, about the one that was selected last.
void vwOverlay::add_part_list(const dgView& view)
{
    const giBox2& port = view.camera().view_port_dc();
    const int count = static_cast<int>(the_parts.size());
    const int rows = std::clamp(static_cast<int>((port.height() - 4 * margin) / line_height), 1, std::max(count, 1));
    int current = 0;
    for (int i = 0; i < count; ++i)
        if (the_selection.is_selected(the_parts[static_cast<std::size_t>(i)].path))
            current = i;
    const int first = std::clamp(current - rows / 2, 0, std::max(count - rows, 0));
    const double top = port.height() - margin;
    the_pixels.rectangle(margin, top - rows * line_height - margin, margin + 240, top, ground);
    for (int i = first; i < std::min(first + rows, count); ++i)
    {
        const vwPart& part = the_parts[static_cast<std::size_t>(i)];
        const int shown = the_selection.is_shown(part.path);
        const gsColour& ink = the_selection.is_selected(part.path) ? marked : shown ? on_ground : faint;
        the_pixels.text(2 * margin, top - (i - first + 1) * line_height, part.name + (shown ? "" : " (hidden)"),
                        text_height, ink, font());
    }
}

void vwOverlay::add_help(const dgView& view)
{
    const giBox2& port = view.camera().view_port_dc();
    std::istringstream lines(the_help_text);
    std::string line;
    const auto count = std::count(the_help_text.begin(), the_help_text.end(), '\n');
    const double pitch = std::clamp((port.height() - 3 * margin) / static_cast<double>(count + 1), 9.0, line_height);
    double y = port.height() - margin - pitch;
    the_pixels.rectangle(margin, margin, port.width() - margin, port.height() - margin / 2, ground);
    for (; std::getline(lines, line) && y > margin; y -= pitch)
    {
        const std::size_t end = line.find("  ");
        const double height = std::min(text_height, 0.8 * pitch);
        the_pixels.text(2 * margin, y, line.substr(0, end), height, marked, font());
        if (end != std::string::npos)
            the_pixels.text(2 * margin + 18 * height, y, line.substr(end + 2), height, on_ground, font());
    }
}
