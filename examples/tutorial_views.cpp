// Step 2 of the tutorial, two views that turn together: tutorial_views part.tarn [bindings.res]
#include "apPathName.h"
#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grView.h"
#include "grViewOperations.h"
#include "gr_read_tarn_tblock.h"
#include "gwGLFWWindow.h"
#include "gwResourceDB.h"

#include <fstream>
#include <iostream>

namespace
{
const char* const bindings = "mouse_button 1 : trackball "
                             "<shift> mouse_button 2 : pan_centre "
                             "mouse_button 2 : pan "
                             "mouse_button 3 : zoom "
                             "qwerty_key 82 : reset "    // R
                             "qwerty_key 73 : isometric" // I
    ;
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    std::string error = "no triangle blocks could be read";
    const std::unique_ptr<gwGLFWWindow> window =
        gr_read_tarn_tblock(file, part.get()) ? gwGLFWWindow::create("tutorial_views", 800, 400, error) : nullptr;
    if (!window)
        return std::cerr << "tutorial_views: " << error << '\n', 1;

    gwResourceDB settings;
    settings.set_resource("translations", bindings);
    settings.set_resource("mouse_wheel_zoom_centre", "no");
    int line = 0;
    if (argc > 2 && settings.load_file(apPathName(argv[2]), line) != gwRESOURCE_OK)
        return std::cerr << argv[2] << ':' << line << ": this is no line of a resource file\n", 1;

    grCanvas canvas(window->main_window(), window->overlay_window(), window.get(), &settings);
    canvas.add_view();
    auto above = std::make_unique<dgView>(canvas.renderer());
    for (dgView* view : {&canvas.view(0), above.get()})
    {
        view->root(part.get());
        view->shading_context().graduated_background = 1;
    }
    grViewOperations::isometric(canvas.view(0));
    grViewOperations::reset(*above);
    // The companion with a parent follows it, at the angle that they have now.
    auto follower = std::make_unique<grView>(above.get(), canvas.companion(0));
    canvas.add_view(std::move(above), std::move(follower));

    const grStdTwiddling twiddling(&window->input(), &settings, nullptr, nullptr);

    // Each view has its half of the window, with a gap of two pixels between them, and keeps it when the size changes.
    const int width = window->width(), height = window->height();
    canvas.view(0).camera().view_port_dc(giBox2(0, 0, width / 2 - 2, height - 1));
    canvas.view(1).camera().view_port_dc(giBox2(width / 2 + 1, 0, width - 1, height - 1));
    for (int i = 0; i < canvas.n_views(); ++i)
        grViewOperations::fit(canvas.view(i));
    window->resize_callback([&] { canvas.resize(window->width(), window->height()); });
    for (canvas.redraw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
