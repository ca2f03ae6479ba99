#include "dgRenderer.h"

#include "apEnvironment.h"
#include "dgAttributeArray.h"
#include "dgCamera.h"
#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgFeatureClusters.h"
#include "dgGraphicalPrimitive.h"
#include "dgNetworkDrawing.h"
#include "dgOpacity.h"
#include "dgPrimitiveRun.h"
#include "dgSeeThrough.h"
#include "dgSelectedDriver.h"
#include "dgStructure.h"
#include "dgText.h"
#include "dgTextFont.h"
#include "dgViewVolume.h"
#include "dgWindow.h"
#include "gsRenderAction.h"

#include "giPoint3.h"

#include <algorithm>
#include <utility>

namespace
{
int culling_at_first()
{
    // Read once, for the first renderer of the process.
    static const bool off = []
    {
        std::string value;
        return apEnvironment::lookup("GR_CULLING", value) && value == "0";
    }();
    return !off;
}
}

dgRenderer::dgRenderer(dgWindow* main, dgWindow* overlay, const gwWindow* input_window)
    : dgRenderTargets(main, overlay, input_window), the_culling(culling_at_first())
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
    the_section = camera->section();
    if (the_section)
    {
        const giVector3& normal = the_section->normal();
        state.sectioned = 1;
        for (int axis = 0; axis < 3; ++axis)
            state.section[axis] = normal[axis];
        state.section[3] = -normal.dot(the_section->point().vector());
    }
    state.depth_test = the_hlhsr_mode != dgHLHSR_OFF;
    state.depth_cueing = the_depth_cueing;
    the_cue_colour.channels(state.cue_colour);
    the_port_width = state.view_port.width() + 1;
    the_port_height = state.view_port.height() + 1;
    if (the_picture_shift.x() != 0 || the_picture_shift.y() != 0)
        state.projection =
            state.projection * giXform3::translation(giVector3(2 * the_picture_shift.x() / the_port_width,
                                                               2 * the_picture_shift.y() / the_port_height, 0));
    driver()->set_camera(state);
    the_world_to_clip = state.world_to_view * state.projection;
    the_camera_known = true;
}

void dgRenderer::driver_begun()
{
    the_context.retell();
    the_camera_known = false;
    the_drew_see_through = 0;
    if (the_camera)
        set_camera(the_camera);
}

void dgRenderer::driver_ends()
{
    if (!the_see_through || the_see_through->empty())
        return;
    the_see_through->draw(*driver());
    the_drew_see_through = 1;
}

void dgRenderer::driver_ended()
{
    the_camera = nullptr;
    the_camera_known = false;
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
    const dgDrawQuality now = quality ? *quality : dgDrawQuality();
    if (now == the_draw_quality)
        return;
    the_draw_quality = now;
    the_context.retell();
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
    if (out_of_view(primitive))
        return;
    if (see_through() && primitive.type() == dgTYPE_TRIANGLE_BLOCK)
        return later().add(primitive);
    flush_state();
    driver()->draw_primitive(primitive);
}

void dgRenderer::draw_run(const dgPrimitiveRun& run, bool in_view)
{
    const bool partly = !in_view && find_seen(run);
    if (partly && the_seen.empty())
        return;
    if (see_through() && run.topology == dgTOPOLOGY_TRIANGLES)
        return partly ? later().add(run, the_seen) : later().add(run);
    flush_state();
    if (draw_coarsened(run, partly))
        return;
    if (partly)
        driver()->draw_features(run, the_seen);
    else
        driver()->draw_run(run);
}

// Draws a run, of which the_seen is in view if partly, as coarsely as the quality in force allows; true when that is
// more coarsely than it is.
bool dgRenderer::draw_coarsened(const dgPrimitiveRun& run, bool partly)
{
    if (!the_draw_quality.facet_tolerance_set || !(the_draw_quality.facet_tolerance > 0) ||
        run.topology != dgTOPOLOGY_TRIANGLES)
        return false;
    if (!partly)
        the_seen.assign(1, {0, run.sampling().features()});
    return driver()->draw_coarsened(run, the_draw_quality.facet_tolerance, the_seen);
}

void dgRenderer::draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans)
{
    if (spans.empty())
        return;
    const bool partly = find_seen(run);
    const bool now = !(see_through() && run.topology == dgTOPOLOGY_TRIANGLES);
    if (!partly)
    {
        if (!now)
            return later().add(run, spans);
        flush_state();
        driver()->draw_features(run, spans);
        return;
    }
    the_seen_spans.clear();
    auto seen = the_seen.begin();
    for (const dgFeatureSpan& span : spans)
    {
        const int end = span.first + span.count;
        while (seen != the_seen.end() && seen->first + seen->count <= span.first)
            ++seen;
        for (auto part = seen; part != the_seen.end() && part->first < end; ++part)
        {
            const int low = std::max(part->first, span.first), high = std::min(part->first + part->count, end);
            the_seen_spans.push_back({low, high - low});
        }
    }
    if (the_seen_spans.empty())
        return;
    if (!now)
        return later().add(run, the_seen_spans);
    flush_state();
    driver()->draw_features(run, the_seen_spans);
}

// Whether surfaces wait until all that is solid was drawn. What is combined by exclusive or, or lies on an overlay, has
// nothing behind it.
bool dgRenderer::see_through() const
{
    const dgGraphicalAttribute* opacity = the_context.attribute(dgTYPE_OPACITY);
    return opacity && static_cast<const dgOpacity*>(opacity)->value() < 1 && the_camera_known &&
           current_driver_index() == 0;
}

dgSeeThrough& dgRenderer::later()
{
    if (!the_see_through)
        the_see_through = std::make_unique<dgSeeThrough>();
    dgDrawState state;
    the_context.resolve(the_text_fonts, the_colour_table, state);
    the_see_through->place(state, the_context.transform(), *the_camera);
    return *the_see_through;
}

// Blocks know their boxes without a look at all points, and the driver those of texts.
bool dgRenderer::out_of_view(const dgGraphicalPrimitive& primitive)
{
    if (!culls() || (primitive.type() != dgTYPE_TRIANGLE_BLOCK && primitive.type() != dgTYPE_TEXT))
        return false;
    giBox3 box;
    if (primitive.type() == dgTYPE_TEXT)
    {
        flush_state();
        box = driver()->text_box(static_cast<const dgText&>(primitive));
    }
    else
        box = primitive.bounding_box();
    return !box.empty() && volume().test(box) == dgBOX_OUTSIDE;
}

bool dgRenderer::find_seen_texts(const dgPrimitiveRun& run)
{
    the_seen.clear();
    for (int i = 0; i < static_cast<int>(run.primitives.size()); ++i)
        if (!out_of_view(*run.primitives[static_cast<std::size_t>(i)]))
            the_seen.push_back({i, 1});
    return the_seen.size() < run.primitives.size();
}

// True when some of a run is out of view: the_seen are the features that may be in it.
bool dgRenderer::find_seen(const dgPrimitiveRun& run)
{
    if (!culls() || the_all_in_view)
        return false;
    if (run.topology == dgTOPOLOGY_TEXT)
        return find_seen_texts(run);
    constexpr int least_gap = 64; // features; a shorter one is drawn sooner than left out
    const dgRunBounds& bounds = run.bounds();
    const dgViewVolume view = volume();
    bool all = true;
    int groups = 0;
    the_seen.clear();
    bounds.tree().find([&](const giBox3& box) { return view.test(box); },
                       [&](int group, bool inside)
                       {
                           ++groups;
                           const int first = bounds.first_feature(group);
                           const dgFeatureClusters* clusters = nullptr;
                           if (const int primitive = bounds.first_primitive(group);
                               !inside && bounds.end_primitive(group) - primitive == 1)
                               clusters = driver()->clusters(*run.primitives[static_cast<std::size_t>(primitive)]);
                           if (!clusters)
                           {
                               the_seen.push_back({first, bounds.end_feature(group) - first});
                               return;
                           }
                           int count = 0;
                           clusters->tree.find([&](const giBox3& box) { return view.test(box); },
                                               [&](int cluster, bool)
                                               {
                                                   const int* start = clusters->starts.data() + cluster;
                                                   the_seen.push_back({first + start[0], start[1] - start[0]});
                                                   ++count;
                                               });
                           all &= count == clusters->tree.count();
                       });
    if (all && groups == bounds.groups())
        return false;
    std::sort(the_seen.begin(), the_seen.end(),
              [](const dgFeatureSpan& a, const dgFeatureSpan& b) { return a.first < b.first; });
    std::size_t joined = 0;
    for (const dgFeatureSpan& span : the_seen)
    {
        dgFeatureSpan* const before = joined ? &the_seen[joined - 1] : nullptr;
        if (before && span.first - (before->first + before->count) < least_gap)
            before->count = span.first + span.count - before->first;
        else
            the_seen[joined++] = span;
    }
    the_seen.resize(joined);
    return true;
}

double dgRenderer::reach() const
{
    double pixels = 0;
    for (const int type : {dgTYPE_LINE_WIDTH, dgTYPE_MARKER_SIZE})
    {
        const dgGraphicalAttribute* attribute = the_context.attribute(type);
        if (!attribute)
            attribute = dgAttributeArray::process_wide().query(type);
        if (attribute)
            pixels = std::max(pixels, attribute->reach());
    }
    return pixels;
}

dgViewVolume dgRenderer::volume(double reach) const
{
    dgViewVolume volume(the_context.transform() * the_world_to_clip, std::max(reach, this->reach()), the_port_width,
                        the_port_height, driver()->cuts_at_planes());
    if (the_section)
        volume.cut(the_context.transform(), *the_section);
    return volume;
}

int dgRenderer::draw_simplified(const dgPrimitiveRun& run, int count)
{
    if (!the_simplified_levels || run.topology != dgTOPOLOGY_TRIANGLES || see_through())
        return 0;
    const bool partly = find_seen(run);
    if (!partly)
        the_seen.assign(1, {0, run.sampling().features()});
    if (the_seen.empty())
        return simplifies() ? count : 0;
    flush_state();
    return driver()->draw_simplified(run, count, the_seen);
}

int dgRenderer::simplifies() const
{
    return the_simplified_levels && driver()->simplifies();
}

void dgRenderer::draw_structure(const dgStructure& structure)
{
    draw_steps(structure, false);
}

void dgRenderer::draw_network(const dgStructure& structure)
{
    const auto held = dg_hold(structure); // between the passes too
    const dgDrawQuality quality_before = the_draw_quality;
    const dgDrawQuality* const own = structure.draw_quality();
    if (own)
        set_in_pipeline_context(own);
    gsRenderAction* action = the_render_action;
    if (action)
        action->start_network(*this, &structure);
    do
        draw_steps(structure, action != nullptr);
    while (action && the_render_action == action && action->another_pass(*this));
    if (action && the_render_action == action)
        action->end_network(*this);
    if (own)
        set_in_pipeline_context(&quality_before);
}

void dgRenderer::draw_steps(const dgStructure& root, bool through_action)
{
    // Drawings that elements start by themselves belong to the walk around them.
    const unsigned long long walk_before = std::exchange(the_walk, the_walk ? the_walk : dgStructure::new_walk());
    dg_draw_network(*this, root, the_walk, through_action);
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
    if (the_draw_quality.text_quality_set && the_draw_quality.text_quality < 1)
        state.text.look = the_draw_quality.text_quality > 0 ? dgTEXT_LINES : dgTEXT_BOX;
    driver()->set_state(state);
}
