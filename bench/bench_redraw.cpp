// Redrawing a view beside bare OpenGL: one draw call in the same framebuffer with the same program and program values,
// once on the very buffers that the view is drawn from, and once on buffers in the triangles' own order, which a
// program for this one picture would fill. Each frame is erased, drawn and finished; the three take turns.
#include "benchBareDraw.h"
#include "benchRing.h"
#include "benchTiming.h"
#include "dgClientStructure.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLWindow.h"
#include "dgRenderer.h"
#include "dgTriangleBlock.h"
#include "dgView.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
struct Picture
{
    Picture(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure)
        : window(device, 1024, 768), renderer(&window, &window), view(&renderer)
    {
        view.root(structure);
        view.camera().orientation(giPoint3(), giVector3(-1, 2, -1.5), giVector3(0, 0, 1));
        view.view_bbox();
    }
    void frame()
    {
        view.erase(dgERASE_ZBUFFER_YES);
        view.render_network(nullptr);
        renderer.finish();
    }

    dgGLWindow window;
    dgRenderer renderer;
    dgView view;
};

void compare(const char* name, const std::shared_ptr<dgGLDevice>& device, dgStructure* structure, int frames,
             double goal)
{
    Picture picture(device, structure);
    const double first = seconds([&] { picture.frame(); });

    // All elements lie together in the buffers, which are those bound last.
    dgGLIndexRanges ranges;
    for (int i = 0; i < structure->nelements(); ++i)
    {
        const auto& record = device->geometry().store(static_cast<const dgGraphicalPrimitive&>(*structure->element(i)));
        ranges.add(record.first_index, record.index_count);
    }
    int vertex_array = 0;
    glGetIntegerv(GL_VERTEX_ARRAY_BINDING, &vertex_array);
    const auto same_frame = [&]
    { bare_frame(static_cast<unsigned>(vertex_array), ranges.counts[0], ranges.offsets[0]); };
    if (ranges.counts.size() != 1)
        std::printf("%s: not comparable, the elements lie apart\n", name);

    const OwnBuffers own(*structure);
    own.frame();
    std::vector<double> times, same_times, own_times;
    for (int i = 0; i < frames; ++i)
    {
        times.push_back(seconds([&] { picture.frame(); }));
        same_times.push_back(seconds(same_frame));
        own_times.push_back(seconds([&] { own.frame(); }));
    }
    const double ours = median(times), same = median(same_times), in_order = median(own_times);
    std::printf("%s: %.2f ms a frame\n", name, 1e3 * ours);
    std::printf("  bare draw of the same buffers %.2f ms: ratio %.3f (goal at most %.2f)\n", 1e3 * same, ours / same,
                goal);
    std::printf("  bare draw in the triangles' own order %.2f ms: ratio %.3f\n", 1e3 * in_order, ours / in_order);
    std::printf("  first frame, with copying: %.1f ms\n", 1e3 * first);
}

// A frame after one of many elements was changed in place, beside one without a change.
void compare_edit(const std::shared_ptr<dgGLDevice>& device, dgStructure* structure, int frames)
{
    Picture picture(device, structure);
    picture.frame();
    std::vector<double> still, edited;
    for (int i = 0; i < frames; ++i)
    {
        still.push_back(seconds([&] { picture.frame(); }));
        auto* element = static_cast<dgTriangleBlock*>(structure->element(i * 97 % structure->nelements()));
        edited.push_back(seconds(
            [&]
            {
                element->block_changed();
                picture.frame();
            }));
    }
    std::printf("one element of %d changed in place: %.2f ms a frame, %.2f ms without a change: ratio %.3f\n",
                structure->nelements(), 1e3 * median(edited), 1e3 * median(still), median(edited) / median(still));
}
}

int main(int argc, char** argv)
{
    const int frames = argc > 1 ? std::max(3, std::atoi(argv[1])) : 31;
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
    {
        std::fprintf(stderr, "bench_redraw: %s\n", error.c_str());
        return EXIT_FAILURE;
    }
    std::printf("%s\n", device->name().c_str());

    const dgRef<dgClientStructure> one(new dgClientStructure);
    one->add(new dgTriangleBlock(ring(1000, 500, 0, 1000, 0, 500), 1));
    compare("one block of 1,000,000 triangles", device, one.get(), frames, 1.05);

    const dgRef<dgClientStructure> many(new dgClientStructure);
    for (int i = 0; i < 10000; ++i)
        many->add(new dgTriangleBlock(ring(400, 300, 4 * (i / 100), 4, 3 * (i % 100), 3), 1));
    compare("10,000 elements of 24 triangles", device, many.get(), frames, 1.25);
    compare_edit(device, many.get(), frames);
    return EXIT_SUCCESS;
}
