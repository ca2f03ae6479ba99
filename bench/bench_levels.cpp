// Simplified levels of heavy blocks: how long they take to be made and what memory they keep, and what a view shows
// that is drawn with a share of its triangles, beside the sample of triangles that it is drawn with otherwise; and what
// whole drawings show and take that a facet tolerance allows to be coarser.
//
//     bench_levels [--memory] [scene...]      scenes: part ring blocks large, or mesh files; without any the first
//     three
//
// --memory starts two processes for each scene, with levels and without, and prints what memory they take.
#include "benchTiming.h"

#include "dgClientStructure.h"
#include "dgDrawQuality.h"
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

using Root = dgRef<dgStructure>;

// Memory of the process: what it has now, the most that it has had, and what the driver's buffers have.
struct Memory
{
    double resident = 0, peak = 0, buffers = 0; // MB

    static Memory now(const dgGLGeometryStore& store)
    {
        Memory memory;
        std::ifstream status("/proc/self/status");
        for (std::string line; std::getline(status, line);)
        {
            const auto kilobytes = [&line] { return std::atof(line.c_str() + line.find(':') + 1); };
            if (line.starts_with("VmRSS:"))
                memory.resident = kilobytes() / 1024;
            else if (line.starts_with("VmHWM:"))
                memory.peak = kilobytes() / 1024;
        }
        memory.buffers = static_cast<double>(store.bytes_used()) / (1 << 20);
        return memory;
    }
};

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
    // Looks at the scene from one of four sides.
    void turn(int side)
    {
        view.camera().orientation(giPoint3(), giVector3(std::cos(1.6 * side), std::sin(1.6 * side), -0.7),
                                  giVector3(0, 0, 1));
        view.view_bbox();
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

// The pictures and the times of whole drawings that may be off by so many pixels, beside those that may not.
void compare_tolerances(Picture& picture)
{
    for (const double pixels : {0.5, 1.0, 2.0, 4.0})
    {
        Difference difference;
        dgDrawQuality coarse;
        coarse.facet_tolerance_set = 1;
        coarse.facet_tolerance = pixels;
        for (int turn = 0; turn < 4; ++turn)
        {
            picture.turn(turn);
            picture.draw(nullptr);
            const dgImage full = picture.image();
            picture.renderer.set_in_pipeline_context(&coarse);
            picture.draw(nullptr);
            difference.add(full, picture.image());
            picture.renderer.set_in_pipeline_context(nullptr);
        }
        const double full_time = best_processor_seconds(3, [&] { picture.draw(nullptr); });
        picture.renderer.set_in_pipeline_context(&coarse);
        const double time = best_processor_seconds(3, [&] { picture.draw(nullptr); });
        picture.renderer.set_in_pipeline_context(nullptr);
        std::printf(
            "  facet tolerance of %.1f pixels: lost %6.3f %%, wrong %6.3f %%, %6.1f ms = %.2f of a full redraw\n",
            pixels, 100 * difference.lost / difference.part, 100 * difference.wrong / difference.part, 1e3 * time,
            time / full_time);
    }
}

// Draws a scene until its levels are there, and prints the memory in one line.
void print_memory(const std::shared_ptr<dgGLDevice>& device, dgStructure& root)
{
    Picture picture(device, &root);
    gsStructureSkipper asking(1 << 30, 0.1);
    for (int i = 0; i < 3; ++i)
        picture.draw(i ? &asking : nullptr);
    device->geometry().complete_levels();
    picture.draw(&asking);
    const Memory memory = Memory::now(device->geometry());
    std::printf("%f %f %f\n", memory.resident, memory.peak, memory.buffers);
}

void compare_memory(const std::string& program, const std::string& scene)
{
    Memory with[2];
    for (const int levels : {0, 1})
    {
        const std::string command =
            std::string("GR_LEVELS=") + (levels ? "1" : "0") + " '" + program + "' --print-memory '" + scene + "'";
        FILE* answer = popen(command.c_str(), "r");
        Memory& memory = with[levels];
        if (!answer || std::fscanf(answer, "%lf %lf %lf", &memory.resident, &memory.peak, &memory.buffers) != 3)
            std::fprintf(stderr, "bench_levels: %s says nothing\n", command.c_str());
        if (answer)
            pclose(answer);
    }
    std::printf("%s: with levels %.0f MB resident, without %.0f: %.2f; the most of all %.0f and %.0f: %.2f; buffers "
                "alone %.0f and %.0f: %.2f (goals at most 1.5)\n",
                scene.c_str(), with[1].resident, with[0].resident, with[1].resident / with[0].resident, with[1].peak,
                with[0].peak, with[1].peak / with[0].peak, with[1].buffers, with[0].buffers,
                with[1].buffers / with[0].buffers);
}

// Processor time of a first picture, with the levels that are made for it or without any.
double first_picture_seconds(dgStructure& root, int levels)
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!levels)
        device->make_no_levels();
    return processor_seconds(
        [&]
        {
            Picture(device, &root).draw(nullptr);
            device->geometry().complete_levels();
        });
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
    store.complete_levels();
    const Memory memory = Memory::now(store);
    std::printf("  process %.0f MB, buffers %.0f MB\n", memory.resident, memory.buffers);
    double made = 1e9;
    for (int i = 0; i < 3; ++i)
    {
        const double without = first_picture_seconds(root, 0);
        made = std::min(made, first_picture_seconds(root, 1) - without);
    }
    std::printf("  levels made in %.2f s of processor time, %.2f s a million triangles\n", made, made / total * 1e6);

    // As docs/rendering.md has it.
    char text[60];
    std::snprintf(text, sizeof text, "| %s | %.0f |", name, total);
    std::string row = text, sample;
    for (const double share : {0.5, 0.2, 0.1, 0.05, 0.02, 0.01})
    {
        for (const int levels : {1, 0})
        {
            picture.renderer.simplified_levels(levels);
            gsStructureSkipper skipper(static_cast<int>(total), share);
            Difference difference;
            for (int turn = 0; turn < 4; ++turn)
            {
                picture.turn(turn);
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
            std::snprintf(text, sizeof text, " %.2f %% / %.2f %% |", 100 * difference.lost / difference.part,
                          100 * difference.wrong / difference.part);
            if (levels && share >= 0.02 && share <= 0.2)
                row += text;
            else if (!levels && share == 0.1)
                sample = text;
        }
        picture.renderer.simplified_levels(1);
    }
    std::printf("%s%s\n", row.c_str(), sample.c_str());
    compare_tolerances(picture);
}

// Null with a message when there is no such scene.
Root scene_named(const std::string& scene)
{
    if (scene == "part")
        return part(2000000);
    if (scene == "ring")
        return ring(1400, 700, 1, 1);
    if (scene == "blocks")
        return ring(1400, 700, 20, 15);
    if (scene == "large")
        return ring(2000, 1000, 1, 1);
    vwModel model;
    std::string error;
    if (model.add_file(scene, error))
        return Root(&model.root());
    std::fprintf(stderr, "bench_levels: %s\n", error.c_str());
    return Root();
}
}

int main(int argc, char** argv)
{
    std::vector<std::string> scenes(argv + 1, argv + argc);
    const auto option = [&scenes](const char* name)
    {
        const bool given = !scenes.empty() && scenes.front() == name;
        if (given)
            scenes.erase(scenes.begin());
        return given;
    };
    const bool compares_memory = option("--memory"), prints_memory = option("--print-memory");
    if (scenes.empty())
        scenes = {"part", "ring", "blocks"};
    for (const std::string& scene : scenes)
    {
        if (compares_memory)
        {
            compare_memory(argv[0], scene);
            continue;
        }
        std::string error;
        const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
        if (!device)
        {
            std::fprintf(stderr, "bench_levels: %s\n", error.c_str());
            return EXIT_FAILURE;
        }
        const Root root = scene_named(scene);
        if (!root)
            return EXIT_FAILURE;
        if (prints_memory)
            print_memory(device, *root);
        else
            measure(scene.c_str(), device, *root);
    }
    return EXIT_SUCCESS;
}
