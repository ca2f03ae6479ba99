// Writes four pictures of a part in the middle of a drag at a fifth of the time that it takes: a frame of simplified
// levels, one without them, the same half way to being complete, and the final one.
//
//     frame_pictures FILE FOLDER
#include "vwModel.h"

#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grViewRefresherFast.h"
#include "grViewRendererFast.h"
#include "gr_time_refresh.h"
#include "pcPictureFile.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace
{
constexpr int width = 800, height = 600;
constexpr double share = 0.2;

class Pictures
{
public:
    Pictures(dgRenderer& renderer, dgGLWindow& window, std::string folder)
        : the_renderer(renderer), the_window(window), the_folder(std::move(folder))
    {}
    int keep(const char* name, std::string& error)
    {
        dgImage image;
        the_renderer.select_buffer(dgFRONT_BUFFER);
        the_renderer.read_pixels(the_window.device_box(), image);
        return pc_write_png(the_folder + "/" + name + ".png", image, error);
    }

private:
    dgRenderer& the_renderer;
    dgGLWindow& the_window;
    std::string the_folder;
};

int draw(const std::string& file, const std::string& folder, std::string& error)
{
    vwModel model;
    if (!model.add_file(file, error))
        return 0;
    const auto device = dgGLDevice::create_off_screen(error);
    if (!device)
        return 0;
    std::filesystem::create_directories(folder);
    dgGLWindow window(device, width, height);
    dgRenderer renderer(&window, nullptr);
    dgView view(&renderer);
    view.root(&model.root());
    view.shading_context().graduated_background = 1;
    view.camera().rotate_view(gi_Z_AXIS, 0.8);
    view.camera().rotate_view(gi_X_AXIS, -0.95);
    view.view_bbox();
    double full = 0;
    for (int i = 0; i < 3; ++i)
        gr_time_render_network(&view, full);
    grViewRendererFast::minimum_framerate(1 / (share * full));

    Pictures pictures(renderer, window, folder);
    renderer.simplified_levels(0);
    int slices = 0;
    {
        // How many idle calls complete the picture.
        grViewRefresherFast refresher({&view});
        refresher.base_start_twiddle();
        for (int i = 0; i < 3; ++i)
            refresher.base_refresh();
        if (!pictures.keep("thinned", error))
            return 0;
        while (refresher.base_idle() != grIDLE_DONE)
            ++slices;
        refresher.base_refresh();
        for (int i = 0; i < slices / 2; ++i)
            refresher.base_idle();
        if (!pictures.keep("half-filled", error))
            return 0;
        device->geometry().complete_levels();
        renderer.simplified_levels(1);
        refresher.base_refresh();
        if (!pictures.keep("simplified", error))
            return 0;
        refresher.base_end_twiddle();
    }
    std::printf("%s: 4 pictures, complete after %d idle calls\n", folder.c_str(), slices);
    return pictures.keep("final", error);
}
}

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        std::fprintf(stderr, "usage: frame_pictures FILE FOLDER\n");
        return 2;
    }
    std::string error;
    if (draw(argv[1], argv[2], error))
        return EXIT_SUCCESS;
    std::fprintf(stderr, "frame_pictures: %s\n", error.c_str());
    return EXIT_FAILURE;
}
