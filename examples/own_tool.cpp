// A tool of the application's own: press on the surface, drag, and read the distance. The right button measures, the
// left one turns: own_tool part.tarn
#include "dgClientStructure.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgText.h"
#include "dgTextAlignment.h"
#include "dgTextDirection.h"
#include "dgTextFont.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grRubberBandManager.h"
#include "grRubberBandStructure.h"
#include "grStdTwiddleHooks.h"
#include "grStdTwiddling.h"
#include "grStdViewTwiddleTool.h"
#include "grToolFactory.h"
#include "grTwiddleMan.h"
#include "gr_read_tarn_tblock.h"
#include "gr_surface_point.h"
#include "gwGLFWWindow.h"
#include "gwKeyEvent.h"
#include "gwMouseEvent.h"
#include "gwResourceDB.h"

#include <cstdio>
#include <fstream>
#include <iostream>

namespace
{
// A line over the scene from where the button was pressed to where the pointer is, with its length beside it.
class MeasureTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

protected:
    void start_twiddle(const gwKeyEvent& event) override
    {
        if (start_view_twiddle(event))
            the_on_surface = gr_surface_point(*target_view(), giPoint2(event.x(), event.y()), the_start);
    }

    void mouse_event(const gwMouseEvent& event) override
    {
        giPoint3 end;
        if (state() != grTWID_TWIDDLING || !target_view() || !the_on_surface ||
            !gr_surface_point(*target_view(), giPoint2(event.x(), event.y()), end))
            return;
        take_off();
        draw(*target_view(), end);
    }

    void end_twiddle(const gwKeyEvent& event) override
    {
        take_off();
        end_view_twiddle(event);
    }

private:
    void draw(dgView& view, const giPoint3& end)
    {
        char length[32];
        std::snprintf(length, sizeof length, "%.2f", (end - the_start).length());
        const giXform3 view_to_world = view.camera().orientation().inverse();
        const dgRef<dgClientStructure> lines(new dgClientStructure());
        lines->add(new dgPolyline({the_start, end}));
        lines->add(new dgTextFontSlot(0));
        lines->add(new dgTextHeight(18 / view.camera().pixels_per_unit()));
        lines->add(new dgTextDirection(view_to_world.transform(giVector3(1, 0, 0)),
                                       view_to_world.transform(giVector3(0, 1, 0))));
        lines->add(new dgTextAlignment(dgTEXT_LEFT, dgTEXT_BOTTOM));
        lines->add(new dgText(end, length));
        the_band =
            dgRef<grRubberBandStructure>(new grRubberBandStructure(view.renderer(), &view, lines.get(), nullptr));
        grRubberBandManager::add(the_band.get());
        grRubberBandManager::draw(the_band.get(), grDRAW_RUBBER_BAND_ITEM);
    }

    void take_off()
    {
        if (!the_band)
            return;
        grRubberBandManager::draw(the_band.get(), grUNDRAW_RUBBER_BAND_ITEM);
        the_band.reset(); // which takes it out of the manager's list
    }

    giPoint3 the_start;
    int the_on_surface = 0;
    dgRef<grRubberBandStructure> the_band;
};

// Adds the word "measure" to those of the text of actions.
class Factory : public grToolFactory
{
public:
    Factory(const gwResourceDB* db, grStdTwiddleHooks* hooks) : the_db(db), the_hooks(hooks) {}

    int identify_tool(utString name) const override { return name == utString("measure"); }
    grTwiddleTool* create_tool(int, const utString& args) const override
    {
        return new MeasureTool(args, the_db, the_hooks);
    }

private:
    const gwResourceDB* the_db;
    grStdTwiddleHooks* the_hooks;
};
}

int main(int argc, char** argv)
{
    std::ifstream file(argc > 1 ? argv[1] : "part.tarn");
    const dgRef<dgClientStructure> part(new dgClientStructure());
    std::string error = "no triangle blocks could be read";
    const std::unique_ptr<gwGLFWWindow> window =
        gr_read_tarn_tblock(file, part.get()) ? gwGLFWWindow::create("own_tool", 800, 600, error) : nullptr;
    if (!window)
        return std::cerr << "own_tool: " << error << '\n', 1;

    grCanvas canvas(window->main_window(), window->overlay_window(), window.get(), nullptr);
    const dgRef<dgTextFont> font(new dgTextFont("DejaVu Sans", 0, 0, 0));
    canvas.renderer()->set_text_font(font.get(), 0);
    dgView& view = canvas.add_view();
    view.root(part.get());
    view.view_bbox();

    gwResourceDB settings;
    settings.set_resource("translations", "mouse_button 1 : trackball mouse_button 3 : measure");
    grStdTwiddleHooks hooks(&settings);
    Factory factory(&settings, &hooks);
    grStdTwiddling twiddling(&window->input(), &settings, &hooks, &factory);

    window->resize_callback([&] { canvas.resize(window->width(), window->height()); });
    for (canvas.redraw(); !window->should_close();)
        window->process_events(twiddling.twiddle_man()->idle() == grIDLE_DONE);
}
