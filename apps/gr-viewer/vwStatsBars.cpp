#include "vwStatsBars.h"

#include "vwFrameTimes.h"

#include "dgView.h"

#include <algorithm>

namespace
{
// Device pixels, and seconds.
constexpr int margin = 8, bar_pitch = 4, bar_width = 3, full_height = 64, most_shown = 100;
constexpr int text_height = 13, line_height = 20;

// In times that a frame may take.
constexpr double full_bar = 2, fair_bar = 1.2;

double height_of(double frame_times)
{
    return full_height * std::min(frame_times / full_bar, 1.0);
}
}

void vwStatsBars::build(const vwFrameTimes& times, int most_bars)
{
    const gsColour fluid(0.35, 0.75, 0.40), fair(0.93, 0.75, 0.25), slow(0.90, 0.35, 0.28), line(0.55, 0.58, 0.62);
    const std::vector<vwFrame>& frames = times.frames();
    const int bars = std::min(most_bars, static_cast<int>(frames.size()));
    the_pixels.clear();
    the_pixels.rectangle(0, 0, margin + most_bars * bar_pitch + margin / 2.0,
                         full_height + 2 * margin + (the_font < 0 ? 0 : line_height), gsColour(0.07, 0.08, 0.10));
    for (int i = 0; i < bars; ++i)
    {
        const double seconds = frames[frames.size() - static_cast<std::size_t>(bars - i)].seconds;
        const double taken = seconds / the_frame_seconds;
        const double x = margin + i * bar_pitch;
        the_pixels.rectangle(x, margin, x + bar_width, margin + std::max(height_of(taken), 1.0),
                             taken <= 1          ? fluid
                             : taken <= fair_bar ? fair
                                                 : slow);
    }
    for (const double taken : {1.0, fair_bar})
        the_pixels.rectangle(margin, margin + height_of(taken), margin + most_bars * bar_pitch,
                             margin + height_of(taken) + 1, line);
    if (!frames.empty())
        the_pixels.text(margin, full_height + 2 * margin, vw_frame_text(times.summary(vwFrameTimes::recent)),
                        text_height, gsColour(0.93, 0.94, 0.96), the_font);
}

void vwStatsBars::draw(dgView& view, const vwFrameTimes& times)
{
    const giBox2& port = view.camera().view_port_dc();
    build(times, std::clamp(static_cast<int>(port.width()) / bar_pitch - margin, 1, most_shown));
    the_pixels.draw(view);
}
