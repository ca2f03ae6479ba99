#include "vwStatsBars.h"

#include "vwFrameTimes.h"

#include "dgCamera.h"
#include "dgLighting.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgText.h"
#include "dgTextColour.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"

#include <algorithm>
#include <memory>

namespace
{
// Device pixels, and seconds.
constexpr int margin = 8, bar_pitch = 4, bar_width = 3, full_height = 64, most_shown = 100;
constexpr int text_height = 13, line_height = 20;

// In times that a frame may take.
constexpr double full_bar = 2, fair_bar = 1.2;

// Rectangles of one colour, in device pixels.
class Rectangles
{
public:
    void add(double low_x, double low_y, double high_x, double high_y)
    {
        giBoxArrPoint3& nodes = the_block->nodes();
        const int first = nodes.count();
        nodes.set(first, giPoint3(low_x, low_y, 0));
        nodes.set(first + 1, giPoint3(high_x, low_y, 0));
        nodes.set(first + 2, giPoint3(high_x, high_y, 0));
        nodes.set(first + 3, giPoint3(low_x, high_y, 0));
        the_block->triangles().push_back(giTriangle{first, first + 1, first + 2});
        the_block->triangles().push_back(giTriangle{first, first + 2, first + 3});
    }
    void move_to(dgStructure& structure, const gsColour& colour)
    {
        if (!the_block->triangle_count())
            return;
        structure.add(new dgSurfaceColour(colour));
        structure.add(new dgTriangleBlock(the_block.release(), 1));
    }

private:
    std::unique_ptr<giTriBlock> the_block = std::make_unique<giTriBlock>();
};

double height_of(double frame_times)
{
    return full_height * std::min(frame_times / full_bar, 1.0);
}

// Shows the pixels of the viewport as they are: one unit is one pixel, (0, 0) the middle of the lowest left one.
dgCamera pixel_camera(const dgCamera& camera)
{
    const giBox2& port = camera.view_port_dc();
    dgCamera flat;
    flat.window_size(camera.window_size());
    flat.view_port_dc(port);
    flat.view_window(giBox2(-0.5, -0.5, port.width() + 0.5, port.height() + 0.5));
    flat.front_back_plane(1, -1);
    return flat;
}
}

void vwStatsBars::build(const vwFrameTimes& times, int most_bars)
{
    const std::vector<vwFrame>& frames = times.frames();
    const int bars = std::min(most_bars, static_cast<int>(frames.size()));
    Rectangles ground, fluid, fair, slow, lines;
    ground.add(0, 0, margin + most_bars * bar_pitch + margin / 2.0,
               full_height + 2 * margin + (the_font < 0 ? 0 : line_height));
    for (int i = 0; i < bars; ++i)
    {
        const double seconds = frames[frames.size() - static_cast<std::size_t>(bars - i)].seconds;
        const double taken = seconds / the_frame_seconds;
        const double x = margin + i * bar_pitch;
        Rectangles& colour = taken <= 1 ? fluid : taken <= fair_bar ? fair : slow;
        colour.add(x, margin, x + bar_width, margin + std::max(height_of(taken), 1.0));
    }
    for (const double taken : {1.0, fair_bar})
        lines.add(margin, margin + height_of(taken), margin + most_bars * bar_pitch, margin + height_of(taken) + 1);

    the_structure->clear();
    the_structure->add(new dgLighting(0));
    ground.move_to(*the_structure, gsColour(0.07, 0.08, 0.10));
    fluid.move_to(*the_structure, gsColour(0.35, 0.75, 0.40));
    fair.move_to(*the_structure, gsColour(0.93, 0.75, 0.25));
    slow.move_to(*the_structure, gsColour(0.90, 0.35, 0.28));
    lines.move_to(*the_structure, gsColour(0.55, 0.58, 0.62));
    if (the_font < 0 || frames.empty())
        return;
    the_structure->add(new dgTextFontSlot(the_font));
    the_structure->add(new dgTextHeight(text_height));
    the_structure->add(new dgTextColour(gsColour(0.93, 0.94, 0.96)));
    the_structure->add(
        new dgText(giPoint3(margin, full_height + 2 * margin, 0), vw_frame_text(times.summary(vwFrameTimes::recent))));
}

void vwStatsBars::draw(dgView& view, const vwFrameTimes& times)
{
    dgRenderer& renderer = *view.renderer();
    const giBox2& port = view.camera().view_port_dc();
    build(times, std::clamp(static_cast<int>(port.width()) / bar_pitch - margin, 1, most_shown));

    const dgCamera flat = pixel_camera(view.camera());
    const dgHLHSRMode mode = renderer.hlhsr_mode();
    renderer.begin();
    renderer.set_hlhsr_mode(dgHLHSR_OFF);
    renderer.set_camera(&flat);
    renderer.draw_structure(*the_structure);
    renderer.end();
    renderer.set_hlhsr_mode(mode);
}
