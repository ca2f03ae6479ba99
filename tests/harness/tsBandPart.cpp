#include "tsStage.h"

#include "dgClientStructure.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "grCanvas.h"
#include "grRubberBandCallback.h"
#include "grRubberBandGraphicalElement.h"
#include "grRubberBandManager.h"
#include "grRubberBandStructure.h"
#include "grView.h"
#include "gr_rubber_band.h"
#include "tsScene.h"

#include <stdexcept>

namespace
{
class BandPart : public tsPart
{
public:
    explicit BandPart(tsStage& stage) : tsPart(stage)
    {
        add_items();
        add_manager();
        add_canvas();
    }
    ~BandPart() override
    {
        gr_undraw_rubber_banding();
        the_items.clear();
        the_canvas.reset();
        for (int i = 1; i <= the_stage.n_windows(); ++i)
            if (dgRenderer* renderer = the_stage.window(i).renderer; renderer && the_stage.window(i).own_renderer)
                grRubberBandManager::to_be_deleted(renderer);
    }

private:
    struct Item
    {
        BandPart* part;
        std::string name;
        dgRef<grRubberBandItem> item;
    };
    static void drawn(grRubberBandItem* item, grRubberBandIt it)
    {
        const auto& self = *static_cast<Item*>(item->user_data());
        // The order matters: the item may be destroyed by what is done inside.
        self.part->the_stage.called("item " + self.name + (it == grDRAW_RUBBER_BAND_ITEM ? " drawn" : " undrawn") +
                                    " by " + std::to_string(item->renderer()->current_driver_index()));
    }
    static int decide(dgRenderer*, void* self)
    {
        auto& part = *static_cast<BandPart*>(self);
        part.the_stage.called("asked", 1);
        return part.the_answer;
    }
    grRubberBandItem* item(tsArguments& in)
    {
        const std::string name = in.word();
        if (!the_items.contains(name))
            throw std::runtime_error("no item " + name);
        return the_items.at(name).item.get();
    }
    grRubberBandItem* make(const std::string& kind, Item& made, tsArguments& in)
    {
        if (kind == "callback")
            return new grRubberBandCallback(the_stage.window(in.integer_or(1)).renderer, drawn, &made);
        dgView& view = in.view();
        const dgRef<dgStructure> structure = tsLine(in.integer());
        if (kind == "structure")
            return new grRubberBandStructure(view.renderer(), &view, structure.get(), nullptr);
        if (kind == "element")
            return new grRubberBandGraphicalElement(view.renderer(), &view, structure->element(0), nullptr);
        throw std::runtime_error("no item of kind " + kind);
    }
    void add_items()
    {
        // NAME callback [WINDOW], NAME structure VIEW SEGMENTS, NAME element VIEW SEGMENTS; behind the list.
        on("item") = [this](tsArguments& in)
        {
            const std::string name = in.word(), kind = in.word();
            Item& made = the_items[name];
            made.part = this;
            made.name = name;
            made.item = dgRef<grRubberBandItem>(make(kind, made, in));
            grRubberBandManager::add(made.item.get());
        };
        on("list") = [this](tsArguments& in) { grRubberBandManager::add(item(in)); };
        on("unlist") = [this](tsArguments& in) { grRubberBandManager::remove(item(in)); };
        on("release_item") = [this](tsArguments& in) { the_items.erase(in.word()); };
        on("draw") = [this](tsArguments& in) { grRubberBandManager::draw(item(in), grDRAW_RUBBER_BAND_ITEM); };
        on("undraw") = [this](tsArguments& in) { grRubberBandManager::draw(item(in), grUNDRAW_RUBBER_BAND_ITEM); };
        on("state") = [this](tsArguments& in)
        {
            const grRubberBandItem* asked = item(in);
            const char* const names[] = {"drawn", "undrawn", "taken off"};
            the_stage.note(std::string(names[asked->state()]) + (asked->cancelled() ? ", cancelled" : "") +
                           (grRubberBandManager::item_in_list(asked) ? "" : ", not listed"));
        };
    }
    void add_manager()
    {
        const auto on_renderer = [this](const std::string& name, void (*work)(dgRenderer*))
        { on(name) = [this, work](tsArguments& in) { work(the_stage.window(in.integer_or(1)).renderer); }; };
        on_renderer("temp_undraw", &grRubberBandManager::temp_undraw);
        on_renderer("update", &grRubberBandManager::update);
        on_renderer("erased", &grRubberBandManager::erased);
        on_renderer("cancel_renderer", &grRubberBandManager::to_be_deleted);
        on("cancel_view") = [](tsArguments& in) { grRubberBandManager::to_be_deleted(&in.view()); };
        on("redraw") = [this](tsArguments& in)
        {
            dgRenderer* renderer = the_stage.window(1).renderer;
            if (in.more())
                grRubberBandManager::redraw(renderer, item(in));
            else
                grRubberBandManager::redraw(renderer);
        };
        on("suspend") = [](tsArguments& in) { grRubberBandManager::suspend_rubber_banding(in.integer()); };
        on("second_manager") = [this](tsArguments& in)
        { the_second = in.integer() ? std::make_unique<grRubberBandManager>() : nullptr; };
        on("clear_list") = [](tsArguments&) { grRubberBandManager::clear(); };
        on("list_is") = [this](tsArguments&)
        {
            the_stage.note(std::string(grRubberBandManager::empty() ? "empty" : "filled") +
                           (grRubberBandManager::items_cancelled() ? ", cancelled" : ""));
        };
        // A function that decides and answers so, or none.
        on("decide") = [this](tsArguments& in)
        {
            if (in.next_is("none"))
                return grRubberBandManager::set_redraw_callback(nullptr, nullptr);
            the_answer = in.integer();
            grRubberBandManager::set_redraw_callback(decide, this);
        };
        on("mode") = [this](tsArguments& in)
        {
            const char* const names[] = {"xor", "overlay", "main"};
            the_stage.note(names[grRubberBandManager::mode(the_stage.window(in.integer_or(1)).renderer)]);
        };
        on("driver") = [this](tsArguments& in)
        { the_stage.note({double(the_stage.window(in.integer_or(1)).renderer->current_driver_index())}); };
        on("select_driver") = [this](tsArguments& in)
        {
            const int driver = in.integer();
            the_stage.window(in.integer_or(1)).renderer->select_driver(driver);
        };
        // For an erase and render: the answer, and what is wanted before and after.
        on("sort_out") = [this](tsArguments& in)
        {
            int before = -1, after = -1;
            const int answer = grRubberBandManager::sort_out_rubber_banding_on_erase_and_render(
                the_stage.window(in.integer_or(1)).renderer, before, after);
            the_stage.note({double(answer), double(before), double(after)});
        };
        on("in_xor") = [this](tsArguments& in)
        {
            the_stage.note(
                {double(grRubberBandManager::renderer_in_xor_mode(the_stage.window(in.integer_or(1)).renderer)),
                 double(grRubberBandManager::last_renderer_was_in_xor_mode())});
        };
        // A manager starts with its defaults, so these need not be put back.
        on("via_redraw") = [](tsArguments& in) { grRubberBandManager::rubber_band_via_redraw(in.integer()); };
        on("via_redraw_flag") = [this](tsArguments&)
        { the_stage.note({double(grRubberBandManager::rubber_band_via_redraw())}); };
        on("stencil") = [](tsArguments& in) { grRubberBandManager::set_xor_mode_with_stencil_planes(in.integer()); };
        on("do_redraw") = [](tsArguments& in) { grRubberBandManager::do_redraw(in.integer()); };
        on("band_framerate") = [](tsArguments& in) { grRubberBandManager::minimum_framerate(in.number()); };
        on("opengl") = [this](tsArguments& in)
        {
            tsStage::Window& window = the_stage.window(in.integer_or(1));
            window.surface.driver_type(dgDRIVER_OPENGL);
            if (window.overlay)
                window.overlay->driver_type(dgDRIVER_OPENGL);
        };
        on("band_lines") = [this](tsArguments& in)
        {
            const int x0 = in.integer(), y0 = in.integer(), x1 = in.integer();
            gr_rubber_band_line(x0, y0, x1, in.integer());
            gr_draw_rubber_banding(the_stage.window(1).renderer);
        };
        on("band_lines_off") = [](tsArguments&) { gr_undraw_rubber_banding(); };
    }
    grCanvas& canvas()
    {
        if (!the_canvas)
            throw std::runtime_error("no canvas");
        return *the_canvas;
    }
    void add_canvas()
    {
        // On the first window, in place of its renderer.
        on("canvas") = [this](tsArguments&)
        {
            tsStage::Window& window = the_stage.window(1);
            window.own_renderer.reset();
            the_canvas = std::make_unique<grCanvas>(&window.surface, window.overlay.get(), &window.input, nullptr);
            window.renderer = the_canvas->renderer();
        };
        on("canvas_view") = [this](tsArguments& in)
        {
            dgView& view = canvas().add_view();
            if (in.more())
            {
                const double x0 = in.number(), y0 = in.number(), x1 = in.number();
                view.camera().view_port_dc(giBox2(x0, y0, x1, in.number()));
            }
            the_stage.adopt(view);
        };
        on("c_hidden") = [this](tsArguments& in)
        {
            grView* view = grView::contains(&in.view());
            view->hidden(in.integer());
        };
        on("c_transparent") = [](tsArguments& in)
        { grView::contains(&in.view())->background(grVIEW_BACKGROUND_TRANSPARENT); };
        on("remove_view") = [this](tsArguments& in) { canvas().remove_view(&in.view()); };
        on("drop_canvas") = [this](tsArguments&)
        {
            the_stage.window(1).renderer = nullptr;
            the_canvas.reset();
        };
        on("c_redraw") = [this](tsArguments&) { canvas().redraw(); };
        on("c_resized") = [this](tsArguments&) { canvas().resized(); };
        // A box, whether to erase, whether to render.
        on("c_draw") = [this](tsArguments& in)
        {
            const double x0 = in.number(), y0 = in.number(), x1 = in.number(), y1 = in.number();
            const int erase = in.integer();
            canvas().erase_and_render_views(giBox2(x0, y0, x1, y1), erase, in.integer());
        };
    }

    grRubberBandManager the_manager;
    std::unique_ptr<grRubberBandManager> the_second;
    std::map<std::string, Item> the_items;
    std::unique_ptr<grCanvas> the_canvas;
    int the_answer = 0;
};
}

std::unique_ptr<tsPart> ts_band_part(tsStage& stage)
{
    return std::make_unique<BandPart>(stage);
}
