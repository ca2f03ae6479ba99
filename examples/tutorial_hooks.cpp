// Step 3 of the tutorial, hooks: views that spin and hold a frame rate, and a box that selects: tutorial_hooks
// part.tarn
#include "dgClientStructure.h"
#include "dgPickAperture.h"
#include "dgPickResult.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grTwiddleMan.h"
#include "grViewOperations.h"
#include "gr_read_tarn_tblock.h"
#include "gwGLFWWindow.h"
#include "gwKeyEvent.h"
#include "gwResourceDB.h"

#include <algorithm>
#include <fstream>
#include <iostream>

namespace
{
const char* const bindings = "<control> mouse_button 1 : aperture "
                             "mouse_button 1 : trackball "
                             "mouse_button 2 : pan "
                             "mouse_button 3 : zoom "
                             "qwerty_key 82 : reset";

class Hooks : public grStdTwiddleHooks
{
public:
    Hooks(const gwResourceDB& db, gwGLFWWindow& window, const dgStructure& part)
        : grStdTwiddleHooks(&db), the_window(window), the_part(part)
    {
        allow_spinning(1);
        use_refresher_fast(1);
        set_preferred_framerate(20);
    }

    // Views turn about the middle of the part, wherever it has been moved to.
    giPoint3 get_world_centre(dgView&) override { return the_part.bounding_box().middle(); }

    void aperture_defined(const gwKeyEvent& first, const gwKeyEvent& second) override
    {
        dgViewcoDList together;
        const dgView* view = identify_views(first, together);
        if (!view)
            return;
        const giBox2 box(std::min(first.x(), second.x()), std::min(first.y(), second.y()),
                         std::max(first.x(), second.x()), std::max(first.y(), second.y()));
        dgPickResult* picked = view->pick_all(dgPickAperture(box));
        the_window.title("tutorial_hooks: " + std::to_string(picked->count()) + " blocks in the box");
        picked->release();
    }

private:
    gwGLFWWindow& the_window;
    const dgStructure& the_part;
};
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    std::string error = "no triangle blocks could be read";
    const std::unique_ptr<gwGLFWWindow> window =
        gr_read_tarn_tblock(file, part.get()) ? gwGLFWWindow::create("tutorial_hooks", 600, 400, error) : nullptr;
    if (!window)
        return std::cerr << "tutorial_hooks: " << error << '\n', 1;

    gwResourceDB settings;
    settings.set_resource("translations", bindings);
    settings.set_resource("spin_time_true", "yes");

    grCanvas canvas(window->main_window(), window->overlay_window(), window.get(), &settings);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.shading_context().graduated_background = 1;

    Hooks hooks(settings, *window, *part);
    const grStdTwiddling twiddling(&window->input(), &settings, &hooks, nullptr);

    window->resize_callback([&] { canvas.resize(window->width(), window->height()); });
    grViewOperations::isometric(view);
    for (canvas.redraw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
