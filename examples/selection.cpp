// Selects parts by clicks, and hides them: selection part.tarn. The left button turns when it is dragged and selects
// when it is clicked, with alt more than one part; with shift it selects in a box. H hides, shift H shows all, L shows
// alone, G makes see-through.
#include "dgClientStructure.h"
#include "dgRef.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grSelection.h"
#include "grSelectionHover.h"
#include "grStdTwiddleHooks.h"
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
        gr_read_tarn_tblock(file, part.get()) ? gwGLFWWindow::create("selection", 800, 600, error) : nullptr;
    if (!window)
        return std::cerr << "selection: " << error << '\n', 1;

    grCanvas canvas(window->main_window(), window->overlay_window(), window.get(), nullptr);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.view_bbox();

    grSelection selection;
    selection.add_view(&view);
    selection.changed_callback([&](const grSelection& now)
                               { window->title(std::to_string(now.selected().size()) + " selected"); });

    gwResourceDB settings;
    settings.set_resource("translations", "<shift> mouse_button 1 : select_box (add) mouse_button 1 : trackball "
                                          "<alt> mouse_click 1 : select (toggle) mouse_click 1 : select "
                                          "<shift> qwerty_key 72 : show (all) qwerty_key 72 : show (hide) "
                                          "qwerty_key 76 : show (isolate) qwerty_key 71 : show (see_through)");
    grStdTwiddleHooks hooks(&settings);
    hooks.selection(&selection);
    grStdTwiddling twiddling(&window->input(), &settings, &hooks, nullptr);
    const grSelectionHover hover(*twiddling.twiddle_man(), hooks);

    window->resize_callback([&] { canvas.resize(window->width(), window->height()); });
    for (canvas.redraw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
