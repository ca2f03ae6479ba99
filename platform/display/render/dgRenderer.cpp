#include "dgRenderer.h"

#include "dgCamera.h"
#include "dgCompiledStructure.h"
#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgGraphicalPrimitive.h"
#include "dgNetworkWalk.h"
#include "dgSelectedDriver.h"
#include "dgStructure.h"
#include "dgTextFont.h"
#include "dgWindow.h"
#include "gsRenderAction.h"

#include "giPoint3.h"

#include <cassert>
#include <utility>

namespace
{
// Meets the steps of structures' compiled forms.
class StepCursor
{
public:
    using Item = const dgCompiledStructure::Step*;

    explicit StepCursor(const dgStructure& structure) : the_steps(structure.compiled().steps()) {}

    Item next() { return the_next < the_steps.size() ? &the_steps[the_next++] : nullptr; }
    static const dgGraphicalElement* element(Item step) { return step->element; }

private:
    const std::vector<dgCompiledStructure::Step>& the_steps;
    std::size_t the_next = 0;
};

// Draws what a walk meets, each structure in a context of its own.
class Drawing : public dgNetworkVisitor<StepCursor>
{
public:
    Drawing(dgRenderer& renderer, unsigned long long walk, bool through_action)
        : the_renderer(renderer), the_walk(walk), the_through_action(through_action)
    {}

    unsigned long long walk() const { return the_walk; }
    bool enter(const dgStructure&)
    {
        the_renderer.push_structure();
        return true;
    }
    bool visit(const dgCompiledStructure::Step* step)
    {
        gsRenderAction* action = the_through_action ? the_renderer.render_action() : nullptr;
        if (step->run)
        {
            if (action)
                action->run(the_renderer, *step->run);
            else
                the_renderer.draw_run(*step->run);
        }
        else if (!action || step->element->kind() == dgELEMENT_ATTRIBUTE ||
                 action->element(the_renderer, *step->element))
        {
            step->element->draw(&the_renderer);
        }
        return true;
    }
    void leave(const dgStructure&) { the_renderer.pop_structure(); }

private:
    dgRenderer& the_renderer;
    unsigned long long the_walk;
    bool the_through_action;
};
}

dgRenderer::dgRenderer(dgWindow* main, dgWindow* overlay, const gwWindow* input_window)
    : dgRenderTargets(main, overlay, input_window)
{}

dgRenderer::~dgRenderer()
{
    render_action(nullptr);
    for (dgSelectedDriver* selected = the_selected_drivers; selected; selected = selected->the_outer)
        selected->the_renderer = nullptr;
}

void dgRenderer::set_camera(const dgCamera* camera)
{
    the_camera = camera;
    // Drivers take it between begin and end alone.
    if (!camera || !begun())
        return;
    dgCameraState state;
    state.world_to_view = camera->orientation();
    state.projection = camera->projection_transform();
    state.view_port = camera->view_port_dc();
    state.front = camera->front_plane();
    state.back = camera->back_plane();
    state.depth_test = the_hlhsr_mode != dgHLHSR_OFF;
    state.depth_cueing = the_depth_cueing;
    the_cue_colour.channels(state.cue_colour);
    driver()->set_camera(state);
}

void dgRenderer::driver_begun()
{
    the_context.retell();
    if (the_camera)
        set_camera(the_camera);
}

void dgRenderer::driver_ended()
{
    the_camera = nullptr;
}

void dgRenderer::select_camera(int index)
{
    if (index == 0 && the_camera)
        set_camera(the_camera);
}

void dgRenderer::render_action(gsRenderAction* action)
{
    if (the_render_action)
        the_render_action->the_renderer = nullptr;
    the_render_action = action;
    if (!action)
        return;
    if (action->the_renderer && action->the_renderer != this)
        action->the_renderer->the_render_action = nullptr;
    action->the_renderer = this;
}

void dgRenderer::set_in_pipeline_context(const dgDrawQuality* quality)
{
    the_draw_quality = quality ? *quality : dgDrawQuality();
}

dgTextFont* dgRenderer::get_text_font(int slot) const
{
    return the_text_fonts.get(slot);
}

void dgRenderer::set_text_font(dgTextFont* font, int slot)
{
    the_text_fonts.set(font, slot);
    the_context.retell();
}

void dgRenderer::colour_table(const dgColourTable& table)
{
    the_colour_table = table;
    the_context.retell();
}

void dgRenderer::execute(const dgGraphicalElement& element)
{
    element.draw(this);
}

void dgRenderer::draw_primitive(const dgGraphicalPrimitive& primitive)
{
    flush_state();
    driver()->draw_primitive(primitive);
}

void dgRenderer::draw_run(const dgPrimitiveRun& run)
{
    flush_state();
    driver()->draw_run(run);
}

void dgRenderer::draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans)
{
    if (spans.empty())
        return;
    flush_state();
    driver()->draw_features(run, spans);
}

void dgRenderer::draw_structure(const dgStructure& structure)
{
    draw_steps(structure, false);
}

void dgRenderer::draw_network(const dgStructure& structure)
{
    const auto held = dg_hold(structure); // between the passes too
    gsRenderAction* action = the_render_action;
    if (action)
        action->start_network(*this, &structure);
    do
        draw_steps(structure, action != nullptr);
    while (action && the_render_action == action && action->another_pass(*this));
    if (action && the_render_action == action)
        action->end_network(*this);
}

void dgRenderer::draw_steps(const dgStructure& root, bool through_action)
{
    // Drawings that elements start by themselves belong to the walk around them.
    const unsigned long long walk_before = std::exchange(the_walk, the_walk ? the_walk : dgStructure::new_walk());
    dg_walk_network(root, Drawing(*this, the_walk, through_action));
    the_walk = walk_before;
}

void dgRenderer::draw_bounding_box(const dgStructure& structure)
{
    const giBox3& box = structure.bounding_box();
    if (box.empty())
        return;
    // Corner numbers differ in one bit along an edge.
    giPoint3 points[24];
    int count = 0;
    for (int corner = 0; corner < 8; ++corner)
    {
        for (int bit = 1; bit < 8; bit *= 2)
        {
            if (corner & bit)
                continue;
            points[count++] = box.corner(corner);
            points[count++] = box.corner(corner | bit);
        }
    }
    flush_state();
    driver()->draw_segments(points, count);
}

void dgRenderer::flush_state()
{
    if (the_context.transform_changed())
        driver()->set_model_transform(the_context.transform());
    if (!the_context.state_changed())
        return;
    dgDrawState state;
    the_context.resolve(the_text_fonts, the_colour_table, state);
    driver()->set_state(state);
}
