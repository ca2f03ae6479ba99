// A zoom box that grows under the mouse, over a scene of a million triangles in a window of 1280 by 720 pixels: what
// each move touches and how long it takes, by each technique, beside one full redraw of the scene in the same run. What
// is touched grows with the box's perimeter by exclusive or, and is the whole window otherwise.
#include "benchTiming.h"
#include "grCanvas.h"
#include "gr_rubber_band.h"
#include "spPart.h"

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giPoint2.h"
#include "giTriBlock.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr int width = 1280, height = 720;
constexpr int bytes_per_pixel = 4;

int always(dgRenderer*, void*)
{
    return 1;
}

// The scene on a canvas of its own.
struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* model, int with_overlay)
        : window(device, width, height), canvas(&window, with_overlay ? window.overlay() : nullptr, nullptr, nullptr)
    {
        dgView& view = canvas.add_view();
        view.root(model);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
        canvas.resized();
        canvas.renderer()->finish();
    }

    // Seconds of some work until it is all drawn, and the pixels that primitives drew meanwhile.
    template <class Work>
    double measure(Work work, unsigned& pixels)
    {
        window.begin();
        glBeginQuery(GL_SAMPLES_PASSED, query);
        const double taken = seconds(
            [&]
            {
                work();
                canvas.renderer()->finish();
            });
        glEndQuery(GL_SAMPLES_PASSED);
        glGetQueryObjectuiv(query, GL_QUERY_RESULT, &pixels);
        return taken;
    }

    dgGLWindow window;
    grCanvas canvas;
    unsigned query = make_query();

private:
    static unsigned make_query()
    {
        unsigned query = 0;
        glGenQueries(1, &query);
        return query;
    }
};

// Puts the box up in place of the one before, which is 4 pixels smaller in each direction, as a mouse move does.
void move(dgRenderer* renderer, int box_width, int box_height)
{
    gr_undraw_rubber_banding();
    gr_rubber_band_box(giPoint2(40, 40), giPoint2(40 + box_width, 40 + box_height));
    gr_draw_rubber_banding(renderer);
}

// cleared_bytes is what the technique clears at every move besides what primitives draw.
void measure_technique(const char* name, Picture& picture, double cleared_bytes, double redraw_seconds, int moves)
{
    std::printf("%s\n", name);
    double smallest = 0, smallest_perimeter = 0, smallest_area = 0;
    for (const int box_width : {64, 128, 256, 512, 1024})
    {
        const int box_height = box_width * 9 / 16;
        std::vector<double> times;
        unsigned pixels = 0;
        for (int i = 0; i <= moves; ++i)
        {
            move(picture.canvas.renderer(), box_width - 4, box_height - 4);
            times.push_back(picture.measure([&] { move(picture.canvas.renderer(), box_width, box_height); }, pixels));
        }
        gr_undraw_rubber_banding();
        const double bytes = bytes_per_pixel * static_cast<double>(pixels) + cleared_bytes;
        const double perimeter = 2.0 * (box_width + box_height), area = 1.0 * box_width * box_height;
        if (smallest == 0)
        {
            smallest = bytes;
            smallest_perimeter = perimeter;
            smallest_area = area;
        }
        std::printf("  box %4d x %3d: %9.0f bytes a move (x %.1f; perimeter x %.1f, area x %.1f), %.3f ms: ratio to a "
                    "redraw %.4f\n",
                    box_width, box_height, bytes, bytes / smallest, perimeter / smallest_perimeter,
                    area / smallest_area, 1e3 * median(times), median(times) / redraw_seconds);
    }
}
}

int main(int argc, char** argv)
{
    const int moves = argc > 1 ? std::max(3, std::atoi(argv[1])) : 31;
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        std::fprintf(stderr, "bench_rubberband: %s\n", error.c_str());
        return EXIT_FAILURE;
    }
    const dgRef<dgClientStructure> model(new dgClientStructure);
    int n_triangles = 0;
    for (std::unique_ptr<giTriBlock>& block : sp_make_part(1000000))
    {
        n_triangles += block->triangle_count();
        model->add(new dgTriangleBlock(block.release(), 1));
    }
    std::printf("%s; %d triangles, %d x %d pixels\n", device->name().c_str(), n_triangles, width, height);

    Picture picture(device, model.get(), 0);
    std::vector<double> redraws;
    unsigned scene_pixels = 0;
    for (int i = 0; i < std::max(moves / 3, 3); ++i)
        redraws.push_back(picture.measure([&] { picture.canvas.redraw(); }, scene_pixels));
    const double redraw_seconds = median(redraws);
    const double window_bytes = 2.0 * bytes_per_pixel * width * height; // colour, and depth with stencil
    std::printf("one full redraw: %.2f ms, %.0f bytes\n", 1e3 * redraw_seconds,
                bytes_per_pixel * static_cast<double>(scene_pixels) + window_bytes);

    measure_technique("exclusive or", picture, 0, redraw_seconds, moves);
    {
        Picture layered(device, model.get(), 1);
        measure_technique("overlay", layered, window_bytes, redraw_seconds, moves);
    }
    grRubberBandManager::set_redraw_callback(always, nullptr);
    measure_technique("redraw", picture, window_bytes, redraw_seconds, 3);
    return EXIT_SUCCESS;
}
