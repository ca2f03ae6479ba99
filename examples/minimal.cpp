// Turns a tarn file with the mouse: minimal part.tarn
#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grView.h"
#include "grViewListUtils.h"
#include "gr_read_tarn_tblock.h"
#include "gwGLFWWindow.h"
#include "gwResourceDB.h"

#include <fstream>
#include <iostream>

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    std::string error = "no triangle blocks could be read";
    const std::unique_ptr<gwGLFWWindow> window =
        gr_read_tarn_tblock(file, part.get()) ? gwGLFWWindow::create("minimal", 800, 600, error) : nullptr;
    if (!window)
        return std::cerr << "minimal: " << error << '\n', 1;

    dgRenderer renderer(window->main_window(), window->overlay_window(), window.get());
    dgView view(&renderer);
    const grView companion(&view);
    view.root(part.get());
    view.view_bbox();

    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                          "qwerty_key 82 : reset");
    grStdTwiddling twiddling(&window->input(), &settings, nullptr, nullptr);

    const auto draw = [&]
    {
        view.camera().view_port_dc(window->device_box());
        view.camera().window_size(giVector2(window->width(), window->height()));
        grViewListUtils::refresh_views({&view}, nullptr, nullptr);
    };
    window->resize_callback(draw);
    for (draw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
