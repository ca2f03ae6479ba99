#include "dgRenderer.h"

#include "dgAttributeArray.h"
#include "dgCamera.h"
#include "dgColourAttribute.h"
#include "dgCompiledStructure.h"
#include "dgDriver.h"
#include "dgGraphicalPrimitive.h"
#include "dgNumberAttribute.h"
#include "dgS.h"
#include "dgSelectedDriver.h"
#include "dgStructure.h"
#include "dgTextAlignment.h"
#include "dgTextDirection.h"
#include "dgTextFont.h"
#include "dgTransform.h"
#include "dgWindow.h"
#include "dgWorldTransform.h"
#include "gsRenderAction.h"

#include "giPoint3.h"

#include <cassert>

namespace
{
void set_channels(float (&channels)[3], const gsColour& colour)
{
    channels[0] = static_cast<float>(colour.red());
    channels[1] = static_cast<float>(colour.green());
    channels[2] = static_cast<float>(colour.blue());
}

dgBackground plain_background(const gsColour& colour)
{
    dgBackground background;
    set_channels(background.top, colour);
    set_channels(background.bottom, colour);
    return background;
}
}

dgRenderer::dgRenderer(dgWindow* main, dgWindow* overlay, const gwWindow* input_window)
    : the_windows{main, overlay ? overlay : main}, the_input_window(input_window)
{}

dgRenderer::~dgRenderer()
{
    render_action(nullptr);
    for (dgSelectedDriver* selected = the_selected_drivers; selected; selected = selected->the_outer)
        selected->the_renderer = nullptr;
}

giBox2 dgRenderer::window_box() const
{
    return the_windows[0]->device_box();
}

dgDriver* dgRenderer::driver(int index) const
{
    if (index < 0)
        index = the_current_driver;
    std::unique_ptr<dgDriver>& driver = the_drivers[index];
    if (!driver)
        driver =
            index == 0 ? the_windows[0]->make_driver(0) : the_windows[1]->make_driver(the_windows[0] == the_windows[1]);
    return driver.get();
}

int dgRenderer::select_driver(int index)
{
    if (index < 0 || index > 1)
        return 0;
    if (index == the_current_driver)
        return 1;
    if (the_begun)
        driver()->end();
    the_current_driver = index;
    the_state_changed = the_transform_changed = 1;
    if (the_begun)
    {
        driver()->begin();
        if (the_camera)
            set_camera(the_camera);
    }
    return 1;
}

int dgRenderer::in_xor_mode() const
{
    return the_current_driver == 1 && the_windows[0] == the_windows[1];
}

void dgRenderer::select_buffer(dgDoubleBuffer buffer)
{
    if (driver_capability(the_mode, dgCAPABILITY_DOUBLE_BUFFERING))
        driver(0)->select_buffer(buffer);
}

void dgRenderer::swap_buffers(dgDoubleBufferSwap mode)
{
    if (!driver_capability(the_mode, dgCAPABILITY_DOUBLE_BUFFERING))
        return;
    driver(0)->swap_buffers(mode);
    the_windows[0]->present();
}

int dgRenderer::driver_capability(int mode, dgDriverCapability capability, int) const
{
    return driver(0)->capability(mode, capability);
}

void dgRenderer::erase(int window)
{
    const int overlay = window == 1 && the_windows[0] != the_windows[1];
    dgDriver* target = driver(overlay);
    target->begin();
    target->clear(window_box(), plain_background(overlay ? gsColour(0, 0, 0) : the_background), dgERASE_FRAMEBUFFER_YES,
                  dgERASE_ZBUFFER_YES);
    target->end();
}

void dgRenderer::clip(const giBox2& device_box)
{
    driver(0)->clip(device_box);
}

void dgRenderer::begin()
{
    if (the_begun++ == 0)
    {
        driver()->begin();
        the_state_changed = the_transform_changed = 1;
        if (the_camera)
            set_camera(the_camera);
    }
}

void dgRenderer::end()
{
    assert(the_begun > 0);
    if (--the_begun == 0)
    {
        driver()->end();
        the_camera = nullptr;
    }
}

void dgRenderer::set_camera(const dgCamera* camera)
{
    the_camera = camera;
    // Drivers take it between begin and end alone.
    if (!camera || !the_begun)
        return;
    dgCameraState state;
    state.world_to_view = camera->orientation();
    state.projection = camera->projection_transform();
    state.view_port = camera->view_port_dc();
    state.front = camera->front_plane();
    state.back = camera->back_plane();
    state.depth_test = the_hlhsr_mode != dgHLHSR_OFF;
    state.depth_cueing = the_depth_cueing;
    set_channels(state.cue_colour, the_cue_colour);
    driver()->set_camera(state);
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
    const auto found = the_text_fonts.find(slot);
    return found == the_text_fonts.end() ? nullptr : found->second.get();
}

void dgRenderer::set_text_font(dgTextFont* font, int slot)
{
    the_state_changed = 1;
    if (font)
        the_text_fonts[slot] = dgRef<dgTextFont>(font);
    else
        the_text_fonts.erase(slot);
}

void dgRenderer::push_structure()
{
    the_levels.push_back({the_undo.size(), the_transform});
}

void dgRenderer::pop_structure()
{
    const Level& level = the_levels.back();
    if (the_undo.size() > level.undo_mark)
        the_state_changed = 1;
    while (the_undo.size() > level.undo_mark)
    {
        the_attributes[the_undo.back().type] = the_undo.back().attribute;
        the_undo.pop_back();
    }
    if (!(the_transform == level.transform))
    {
        the_transform = level.transform;
        the_transform_changed = 1;
    }
    the_levels.pop_back();
}

void dgRenderer::execute(const dgGraphicalElement& element)
{
    element.draw(this);
}

void dgRenderer::set_attribute(const dgGraphicalAttribute& attribute)
{
    if (attribute.type() == dgTYPE_TRANSFORM)
    {
        the_transform = static_cast<const dgTransform&>(attribute).transform() * the_transform;
        the_transform_changed = 1;
        return;
    }
    if (attribute.type() == dgTYPE_WORLD_TRANSFORM)
    {
        the_transform = static_cast<const dgWorldTransform&>(attribute).transform();
        the_transform_changed = 1;
        return;
    }
    const dgGraphicalAttribute*& slot = the_attributes[attribute.type()];
    the_state_changed = 1; // even for the same element: it may have been changed in place
    if (slot == &attribute)
        return;
    if (!the_levels.empty())
        the_undo.push_back({attribute.type(), slot});
    slot = &attribute;
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
    draw_steps(structure, 0);
}

void dgRenderer::draw_network(const dgStructure& structure)
{
    gsRenderAction* action = the_render_action;
    if (action)
        action->start_network(*this, &structure);
    do
        draw_steps(structure, action != nullptr);
    while (action && the_render_action == action && action->another_pass(*this));
    if (action && the_render_action == action)
        action->end_network(*this);
}

void dgRenderer::draw_steps(const dgStructure& root, int through_action)
{
    // Frames lie on a vector, not on the call stack, so that networks may be of any depth.
    struct Frame
    {
        dgCompiledStructure* compiled;
        std::size_t next_step;
    };
    std::vector<Frame> frames;
    const auto enter = [&](const dgStructure& structure)
    {
        dgCompiledStructure& compiled = structure.compiled();
        if (!compiled.enter())
            return;
        push_structure();
        frames.push_back({&compiled, 0});
    };
    enter(root);
    while (!frames.empty())
    {
        Frame& frame = frames.back();
        if (frame.next_step == frame.compiled->steps().size())
        {
            frame.compiled->leave();
            pop_structure();
            frames.pop_back();
            continue;
        }
        const dgCompiledStructure::Step step = frame.compiled->steps()[frame.next_step++];
        gsRenderAction* action = through_action ? the_render_action : nullptr;
        if (step.run)
        {
            if (action)
                action->run(*this, *step.run);
            else
                draw_run(*step.run);
        }
        else if (const dgStructure* called = step.element->called_structure())
        {
            enter(*called);
        }
        else if (step.element->type() != dgTYPE_STRUCTURE_CALL)
        {
            if (!action || step.element->kind() == dgELEMENT_ATTRIBUTE || action->element(*this, *step.element))
                step.element->draw(this);
        }
    }
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
    if (the_transform_changed)
    {
        driver()->set_model_transform(the_transform);
        the_transform_changed = 0;
    }
    if (!the_state_changed)
        return;
    the_state_changed = 0;
    const dgAttributeArray& defaults = dgS::attribute_array();
    const auto attribute = [&](int type) -> const dgGraphicalAttribute*
    { return the_attributes[type] ? the_attributes[type] : defaults.query(type); };
    const auto colour = [&](int type, float(&channels)[3])
    {
        if (const auto* found = static_cast<const dgColourAttribute*>(attribute(type)))
            set_channels(channels, found->colour());
    };
    const auto number = [&](int type, auto& value)
    {
        if (const auto* found = static_cast<const dgNumberAttribute*>(attribute(type)))
            value = static_cast<std::remove_reference_t<decltype(value)>>(found->value());
    };
    dgDrawState state;
    colour(dgTYPE_LINE_COLOUR, state.line_colour);
    colour(dgTYPE_MARKER_COLOUR, state.marker_colour);
    colour(dgTYPE_TEXT_COLOUR, state.text_colour);
    colour(dgTYPE_SURFACE_COLOUR, state.front_colour);
    // Back faces have the front colour until one of their own is set.
    colour(the_attributes[dgTYPE_BACK_SURFACE_COLOUR] ? dgTYPE_BACK_SURFACE_COLOUR : dgTYPE_SURFACE_COLOUR,
           state.back_colour);
    number(dgTYPE_LINE_STYLE, state.line_style);
    number(dgTYPE_LINE_WIDTH, state.line_width);
    number(dgTYPE_MARKER_SIZE, state.marker_size);
    number(dgTYPE_INTERIOR_STYLE, state.interior_style);
    number(dgTYPE_LIGHTING, state.lighting);
    int slot = 0;
    number(dgTYPE_TEXT_FONT_SLOT, slot);
    state.text.font = get_text_font(slot);
    number(dgTYPE_TEXT_HEIGHT, state.text.height);
    number(dgTYPE_TEXT_WIDTH_FACTOR, state.text.width_factor);
    number(dgTYPE_TEXT_SPACING, state.text.spacing);
    if (const auto* direction = static_cast<const dgTextDirection*>(attribute(dgTYPE_TEXT_DIRECTION)))
    {
        state.text.baseline = direction->baseline();
        state.text.up = direction->up();
    }
    if (const auto* alignment = static_cast<const dgTextAlignment*>(attribute(dgTYPE_TEXT_ALIGNMENT)))
    {
        state.text.horizontal = alignment->horizontal();
        state.text.vertical = alignment->vertical();
    }
    driver()->set_state(state);
}

void dgRenderer::read_pixels(const giBox2& device_box, dgImage& image)
{
    begin();
    driver()->read_pixels(device_box, image);
    end();
}

void dgRenderer::finish()
{
    driver()->finish();
}
