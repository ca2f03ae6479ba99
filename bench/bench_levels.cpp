// Simplified levels of heavy blocks: how long they take to be made and what memory they keep, and what a view shows
// that is drawn with a share of its triangles, beside the sample of triangles that it is drawn with otherwise.
//
//     bench_levels [scene...]      scenes: part ring blocks, or mesh files; without any the first three
#include "benchTiming.h"

#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRenderer.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "giTriBlock.h"
#include "gsStructureSkipper.h"
#include "spPart.h"
#include "vwModel.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace
{
constexpr int width = 1280, height = 720;
constexpr int most_wrong = 24; // of 255, in one of the colours

using Root = dgRef<dgClientStructure>;

// Bytes that the process keeps in memory.
double resident_bytes()
{
    std::ifstream status("/proc/self/statm");
    double all = 0, resident = 0;
    status >> all >> resident;
    return resident * 4096;
}

Root part(int triangles)
{
    const Root root(new dgClientStructure);
    int number = 0;
    for (auto& block : sp_make_part(triangles))
    {
        root->add(new dgSurfaceColour(gsColour(0.3 + 0.1 * number, 0.6, 0.9 - 0.1 * number)));
        root->add(new dgTriangleBlock(block.release(), 1));
        ++number;
    }
    return root;
}

// A ring with waves like those of a scan, in columns x rows blocks that meet.
Root ring(int around, int across, int columns, int rows)
{
    const Root root(new dgClientStructure);
    const auto point = [&](int i, int j)
    {
        const double u = 6.283185307179586 * i / around, v = 6.283185307179586 * j / across;
        const double wave = std::sin(9 * u + 2 * std::sin(5 * v)) + 0.4 * std::sin(31 * u) * std::sin(23 * v);
        const double radius = 30 + 2 * wave;
        return giPoint3((70 + radius * std::cos(v)) * std::cos(u), (70 + radius * std::cos(v)) * std::sin(u),
                        radius * std::sin(v));
    };
    for (int column = 0; column < columns; ++column)
        for (int row = 0; row < rows; ++row)
        {
            const int first = around * column / columns, end = around * (column + 1) / columns;
            const int low = across * row / rows, high = across * (row + 1) / rows;
            auto* block = new giTriBlock;
            std::vector<giVector3> normals;
            for (int i = first; i <= end; ++i)
                for (int j = low; j <= high; ++j)
                {
                    block->nodes().append(point(i, j));
                    normals.push_back((point(i + 1, j) - point(i - 1, j)).cross(point(i, j + 1) - point(i, j - 1)));
                }
            block->create_normals() = std::move(normals);
            for (int i = 0; i < end - first; ++i)
                for (int j = 0; j < high - low; ++j)
                {
                    const int node = i * (high - low + 1) + j, next = node + high - low + 1;
                    block->triangles().emplace_back(node, next, next + 1);
                    block->triangles().emplace_back(node, next + 1, node + 1);
                }
            root->add(new dgTriangleBlock(block, 1));
        }
    return root;
}

struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* root)
        : window(device, width, height), renderer(&window, nullptr), view(&renderer)
    {
        view.root(root);
        view.view_bbox();
    }
    void draw(gsRenderAction* action)
    {
        view.erase(dgERASE_ZBUFFER_YES);
        renderer.render_action(action);
        view.render_network(nullptr);
        renderer.render_action(nullptr);
        renderer.finish();
    }
    dgImage image()
    {
        dgImage image;
        renderer.read_pixels(window.device_box(), image);
        return image;
    }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

struct Difference
{
    double lost = 0, wrong = 0, part = 0; // pixels

    void add(const dgImage& full, const dgImage& image)
    {
        for (std::size_t i = 0; i < full.rgba.size(); i += 4)
        {
            const auto background = [i](const dgImage& of)
            { return !of.rgba[i] && !of.rgba[i + 1] && !of.rgba[i + 2]; };
            int worst = 0;
            for (std::size_t k = i; k < i + 3; ++k)
                worst = std::max(worst, std::abs(full.rgba[k] - image.rgba[k]));
            part += !background(full);
            lost += !background(full) && background(image);
            wrong += worst > most_wrong;
        }
    }
};

// Of all threads, so that others on the machine matter less.
template <class Work>
double best_processor_seconds(int times, Work work)
{
    double best = processor_seconds(work);
    while (--times)
        best = std::min(best, processor_seconds(work));
    return best;
}

void measure(const char* name, const std::shared_ptr<dgGLDevice>& device, dgStructure& root)
{
    Picture picture(device, &root);
    picture.draw(nullptr);
    picture.draw(nullptr);
    dgGLGeometryStore& store = device->geometry();
    gsStructureSkipper counting(0, 1);
    picture.draw(&counting);
    const auto total = static_cast<double>(counting.prims_drawn());
    std::printf("%s: %.0f triangles; shares beside a full redraw, by processor time\n", name, total);

    // Asked for by a share that is drawn, where the scene is too small for more; the second one takes them over.
    gsStructureSkipper asking(static_cast<int>(total), 0.1);
    for (int i = 0; i < 3; ++i)
        picture.draw(&asking);
    const double made = seconds([&] { store.complete_levels(); });
    std::printf(
        "  levels complete after another %.2f s (%.2f s a million triangles); process %.0f MB, buffers %.0f MB\n", made,
        made / total * 1e6, resident_bytes() / 1e6, static_cast<double>(store.bytes_used()) / 1e6);

    for (const double share : {0.5, 0.2, 0.1, 0.05, 0.02, 0.01})
    {
        for (const int levels : {1, 0})
        {
            picture.renderer.simplified_levels(levels);
            gsStructureSkipper skipper(static_cast<int>(total), share);
            Difference difference;
            for (int turn = 0; turn < 4; ++turn)
            {
                picture.view.camera().orientation(
                    giPoint3(), giVector3(std::cos(1.6 * turn), std::sin(1.6 * turn), -0.7), giVector3(0, 0, 1));
                picture.view.view_bbox();
                picture.draw(nullptr);
                const dgImage full = picture.image();
                picture.draw(&skipper);
                difference.add(full, picture.image());
            }
            const double time = best_processor_seconds(5, [&] { picture.draw(&skipper); });
            const double full_time = best_processor_seconds(3, [&] { picture.draw(nullptr); });
            std::printf("  %4.0f %% %s: %5.2f %% of the triangles, lost %6.3f %%, wrong %6.3f %%, %6.1f ms = %.2f%s\n",
                        100 * share, levels ? "levels" : "sample",
                        100 * static_cast<double>(skipper.prims_drawn()) / total,
                        100 * difference.lost / difference.part, 100 * difference.wrong / difference.part, 1e3 * time,
                        time / full_time, levels && share <= 0.1 ? " (goal at most 0.1 and 1)" : "");
        }
        picture.renderer.simplified_levels(1);
    }
}
}

int main(int argc, char** argv)
{
    std::vector<std::string> scenes(argv + 1, argv + argc);
    if (scenes.empty())
        scenes = {"part", "ring", "blocks"};
    for (const std::string& scene : scenes)
    {
        std::string error;
        const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
        if (!device)
        {
            std::fprintf(stderr, "bench_levels: %s\n", error.c_str());
            return EXIT_FAILURE;
        }
        if (scene == "part")
            measure("the sample part", device, *part(2000000));
        else if (scene == "ring")
            measure("one block with waves", device, *ring(1400, 700, 1, 1));
        else if (scene == "blocks")
            measure("300 blocks that meet", device, *ring(1400, 700, 20, 15));
        else
        {
            vwModel model;
            if (!model.add_file(scene, error))
            {
                std::fprintf(stderr, "bench_levels: %s\n", error.c_str());
                return EXIT_FAILURE;
            }
            measure(scene.c_str(), device, model.root());
        }
    }
    return EXIT_SUCCESS;
}
