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
#include "tsCommand.h"
#include "tsScene.h"

#include <optional>
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
    ~BandPart()
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
    grRubberBandItem* item(const std::string& name)
    {
        if (!the_items.contains(name))
            throw std::runtime_error("no item " + name);
        return the_items.at(name).item.get();
    }
    grRubberBandItem* make(const std::string& kind, Item& made, tsArguments& in)
    {
        if (kind == "callback")
            return new grRubberBandCallback(in.window().renderer, drawn, &made);
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
        on("item") = [this](const std::string& name, const std::string& kind, tsArguments& in)
        {
            Item& made = the_items[name];
            made.part = this;
            made.name = name;
            made.item = dgRef<grRubberBandItem>(make(kind, made, in));
            grRubberBandManager::add(made.item.get());
        };
        on("list") = [this](const std::string& name) { grRubberBandManager::add(item(name)); };
        on("unlist") = [this](const std::string& name) { grRubberBandManager::remove(item(name)); };
        on("release_item") = [this](const std::string& name) { the_items.erase(name); };
        on("draw") = [this](const std::string& name)
        { grRubberBandManager::draw(item(name), grDRAW_RUBBER_BAND_ITEM); };
        on("undraw") = [this](const std::string& name)
        { grRubberBandManager::draw(item(name), grUNDRAW_RUBBER_BAND_ITEM); };
        on("state") = [this](const std::string& name)
        {
            const grRubberBandItem* asked = item(name);
            const char* const names[] = {"drawn", "undrawn", "taken off"};
            return std::string(names[asked->state()]) + (asked->cancelled() ? ", cancelled" : "") +
                   (grRubberBandManager::item_in_list(asked) ? "" : ", not listed");
        };
        on("note_state") = [this](const std::string& name, int drawn)
        {
            item(name)->set_draw_state(drawn ? grDRAW_RUBBER_BAND_ITEM : grUNDRAW_RUBBER_BAND_ITEM,
                                       grRUBBER_BAND_SELECT_DRIVER);
        };
        on("turn_off_hlhsr") = [this](const std::string& name, int off) { item(name)->set_turn_off_hlhsr(off); };
        on("view_hlhsr") = [](dgView& view, tsArguments& in)
        {
            if (in.more())
                view.shading_context().set_hlhsr_mode(ts_read<dgHLHSRMode>(in));
            return int(view.shading_context().hlhsr_mode);
        };
        on("hlhsr") = [](tsWindow& window) { return int(window.renderer->hlhsr_mode()); };
    }
    void add_manager()
    {
        using Manager = grRubberBandManager;
        on("temp_undraw") = [](tsWindow& window) { Manager::temp_undraw(window.renderer); };
        on("update") = [](tsWindow& window) { Manager::update(window.renderer); };
        on("erased") = [](tsWindow& window) { Manager::erased(window.renderer); };
        on("cancel_renderer") = [](tsWindow& window) { Manager::to_be_deleted(window.renderer); };
        on("cancel_view") = [](dgView& view) { Manager::to_be_deleted(&view); };
        on("redraw") = [this](tsArguments& in)
        {
            dgRenderer* renderer = the_stage.window(1).renderer;
            if (in.more())
                Manager::redraw(renderer, item(in.word()));
            else
                Manager::redraw(renderer);
        };
        on("suspend") = [](int on) { Manager::suspend_rubber_banding(on); };
        on("second_manager") = [this](int on) { the_second = on ? std::make_unique<Manager>() : nullptr; };
        on("clear_list") = [] { Manager::clear(); };
        on("no_manager") = [this] { the_manager.reset(); };
        on("new_manager") = [this] { the_manager.emplace(); };
        on("list_is") = [] {
            return std::string(Manager::empty() ? "empty" : "filled") +
                   (Manager::items_cancelled() ? ", cancelled" : "");
        };
        // A function that decides and answers so, or none.
        on("decide") = [this](tsArguments& in)
        {
            if (in.next_is("none"))
                return Manager::set_redraw_callback(nullptr, nullptr);
            the_answer = in.integer();
            Manager::set_redraw_callback(decide, this);
        };
        on("mode") = [](tsWindow& window)
        {
            const char* const names[] = {"xor", "overlay", "main"};
            return names[Manager::mode(window.renderer)];
        };
        on("driver") = [](tsWindow& window) { return window.renderer->current_driver_index(); };
        on("select_driver") = [](int driver, tsWindow& window) { window.renderer->select_driver(driver); };
        // For an erase and render: the answer, and what is wanted before and after.
        on("sort_out") = [](tsWindow& window)
        {
            int before = -1, after = -1;
            const int answer = Manager::sort_out_rubber_banding_on_erase_and_render(window.renderer, before, after);
            return std::vector<double>{double(answer), double(before), double(after)};
        };
        on("in_xor") = [](tsWindow& window)
        {
            const double in_xor = Manager::renderer_in_xor_mode(window.renderer);
            return std::vector<double>{in_xor, double(Manager::last_renderer_was_in_xor_mode())};
        };
        // A manager starts with its defaults, so these need not be put back.
        on("via_redraw") = [](int on) { Manager::rubber_band_via_redraw(on); };
        on("via_redraw_flag") = [] { return Manager::rubber_band_via_redraw(); };
        on("stencil") = [](int on) { Manager::set_xor_mode_with_stencil_planes(on); };
        on("do_redraw") = [](int on) { Manager::do_redraw(on); };
        on("band_framerate") = [](tsArguments& in)
        {
            if (in.more())
                Manager::minimum_framerate(in.number());
            return Manager::minimum_framerate();
        };
        on("band_colour") = [](double r, double g, double b) { Manager::rubber_band_colour(gsColour(r, g, b)); };
        on("colour_in_xor") = [](int by_default) { Manager::set_default_colour_in_xor_mode(by_default); };
        on("calculate_colour") = [](int on) { Manager::calculate_colour_in_xor_mode(on); };
        on("xor_colour") = [this](double r, double g, double b)
        {
            const gsColour c = Manager::calculate_xor_colour(the_stage.window(1).renderer, gsColour(r, g, b));
            return std::vector<double>{255 * c.red(), 255 * c.green(), 255 * c.blue()};
        };
        on("background") = [](dgView& view, double r, double g, double b)
        { view.shading_context().background_colour = gsColour(r, g, b); };
        // From bottom to top.
        on("graduated") = [](dgView& view, const giVector3& bottom, const giVector3& top)
        {
            dgViewShadingContext& shading = view.shading_context();
            shading.graduated_background = 1;
            shading.bottom_colour = gsColour(bottom.x(), bottom.y(), bottom.z());
            shading.top_colour = gsColour(top.x(), top.y(), top.z());
        };
        // Cameras and attributes are recorded too, as they are sent.
        on("record_state") = [](tsWindow& window) { window.surface.record_state(1); };
        on("fade_with_depth") = [](tsWindow& window) { window.renderer->depth_cueing(1); };
        on("opengl") = [](tsWindow& window)
        {
            window.surface.driver_type(dgDRIVER_OPENGL);
            if (window.overlay)
                window.overlay->driver_type(dgDRIVER_OPENGL);
        };
        on("band_lines") = [this](int x0, int y0, int x1, int y1)
        {
            gr_rubber_band_line(x0, y0, x1, y1);
            gr_draw_rubber_banding(the_stage.window(1).renderer);
        };
        on("band_lines_off") = [] { gr_undraw_rubber_banding(); };
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
        on("canvas") = [this]
        {
            tsWindow& window = the_stage.window(1);
            window.own_renderer.reset();
            the_canvas = std::make_unique<grCanvas>(&window.surface, window.overlay.get(), &window.input, nullptr);
            window.renderer = the_canvas->renderer();
        };
        on("canvas_view") = [this](tsArguments& in)
        {
            dgView& view = canvas().add_view();
            if (in.more())
                view.camera().view_port_dc(ts_read<giBox2>(in));
            the_stage.adopt(view);
        };
        on("c_hidden") = [](dgView& view, int hidden) { grView::contains(&view)->hidden(hidden); };
        on("c_transparent") = [](dgView& view) { grView::contains(&view)->background(grVIEW_BACKGROUND_TRANSPARENT); };
        on("remove_view") = [this](dgView& view) { canvas().remove_view(&view); };
        on("drop_canvas") = [this]
        {
            the_stage.window(1).renderer = nullptr;
            the_canvas.reset();
        };
        on("c_redraw") = [this] { canvas().redraw(); };
        on("c_resized") = [this] { canvas().resized(); };
        on("c_draw") = [this](const giBox2& box, int erase, int render)
        { canvas().erase_and_render_views(box, erase, render); };
    }

    std::optional<grRubberBandManager> the_manager{std::in_place};
    std::unique_ptr<grRubberBandManager> the_second;
    std::map<std::string, Item> the_items;
    std::unique_ptr<grCanvas> the_canvas;
    int the_answer = 0;
};
}

std::shared_ptr<void> ts_band_part(tsStage& stage)
{
    return std::make_shared<BandPart>(stage);
}
