// Turns a tarn file with the mouse: minimal part.tarn
#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
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

    grCanvas canvas(window->main_window(), window->overlay_window(), window.get(), nullptr);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.view_bbox();

    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 2 : pan mouse_button 3 : zoom "
                                          "qwerty_key 82 : reset");
    grStdTwiddling twiddling(&window->input(), &settings, nullptr, nullptr);

    window->resize_callback([&] { canvas.resize(window->width(), window->height()); });
    for (canvas.redraw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
