#include "dgGLDriver.h"

#include "dgGLClusters.h"
#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLGeometryStore.h"
#include "dgGLPixels.h"
#include "dgGLPrograms.h"
#include "dgGLSavedState.h"
#include "dgGLTessellator.h"
#include "dgGLTextStore.h"
#include "dgGLWindow.h"
#include "dgGraphicalPrimitive.h"
#include "dgImage.h"
#include "dgPrimitiveRun.h"
#include "dgText.h"
#include "giBox3.h"
#include "giPoint3.h"
#include "gsColour.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
// Up to how many indices drawing may cost less than changing the colour of fragments.
constexpr int few_indices = 1200;

void set_capability(unsigned capability, int on)
{
    if (on)
        glEnable(capability);
    else
        glDisable(capability);
}

// Cuts what is drawn meanwhile; other programs know no distances.
class Section
{
public:
    explicit Section(int on) : the_on(on)
    {
        if (the_on)
            glEnable(GL_CLIP_DISTANCE0);
    }
    ~Section()
    {
        if (the_on)
            glDisable(GL_CLIP_DISTANCE0);
    }
    Section(const Section&) = delete;
    Section& operator=(const Section&) = delete;

private:
    int the_on;
};

unsigned mode_of(dgTopology topology)
{
    switch (topology)
    {
    case dgTOPOLOGY_POINTS: return GL_POINTS;
    case dgTOPOLOGY_LINES: return GL_LINES;
    case dgTOPOLOGY_TRIANGLES:
    case dgTOPOLOGY_TEXT: return GL_TRIANGLES;
    }
    return GL_POINTS;
}

// Stamps of all drivers share one count, so that a program can tell the values of one from those of another.
unsigned long long next_stamp()
{
    static unsigned long long stamp = 0;
    return ++stamp;
}
}

dgGLDriver::dgGLDriver(dgGLWindow& window, int overlay, int inverting)
    : the_window(window), the_device(window.device()), the_overlay(overlay), the_inverting(inverting)
{
    the_camera.view_port = window.device_box();
}

dgGLDriver::~dgGLDriver()
{
    if (the_device.modes_owner() == this)
        the_device.modes_owner(nullptr);
}

int dgGLDriver::capability(int, dgDriverCapability capability) const
{
    switch (capability)
    {
    case dgCAPABILITY_DEPTH_CUEING: return 1;
    case dgCAPABILITY_STENCIL: return 1;
    case dgCAPABILITY_OVERLAY:
    case dgCAPABILITY_ACCUMULATION:
    case dgCAPABILITY_DOUBLE_BUFFERING: return !the_overlay;
    }
    return 0;
}

void dgGLDriver::begin()
{
    the_device.begin_use();
    if (!the_device.lost())
        the_device.geometry().take_levels();
    the_colours_change = the_last_colour_known = false;
    own_modes();
}

void dgGLDriver::end()
{
    flush();
    the_device.end_use();
}

// Other drivers draw in the same context between two calls of this one.
void dgGLDriver::own_modes()
{
    if (the_device.modes_owner() == this || the_device.lost())
        return;
    the_device.modes_owner(this);
    the_window.bind_layer(the_overlay);
    const dgGLPixels port = dg_gl_pixels(the_camera.view_port);
    glViewport(port.x, port.y, port.width, port.height);
    set_scissor(the_camera.view_port);
    glEnable(GL_SCISSOR_TEST);
    glDisable(GL_BLEND);
    glDisable(GL_DITHER);
    glDisable(GL_CULL_FACE);
    glEnable(GL_PROGRAM_POINT_SIZE);
    glDepthFunc(GL_LEQUAL);
    set_capability(GL_DEPTH_TEST, the_camera.depth_test);
    glDepthMask(!the_inverting);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, !the_inverting);
    set_capability(GL_COLOR_LOGIC_OP, the_inverting);
    glLogicOp(GL_XOR);
    glStencilMask(~0u);
    set_capability(GL_STENCIL_TEST, the_stencil.on);
    glStencilFunc(the_stencil.function, the_stencil.reference, the_stencil.mask);
    glStencilOp(the_stencil.operations[0], the_stencil.operations[1], the_stencil.operations[2]);
}

// Before something is drawn or read. An overlay is made only then, as many are never used.
void dgGLDriver::need_layer()
{
    if (the_overlay && !the_window.overlay_made())
        the_window.make_overlay();
}

void dgGLDriver::set_scissor(const giBox2& device_box) const
{
    giBox2 visible = device_box;
    if (!the_clip.empty())
        visible = device_box.intersection(the_clip);
    if (visible.empty())
        glScissor(0, 0, 0, 0);
    else
    {
        const dgGLPixels box = dg_gl_pixels(visible);
        glScissor(box.x, box.y, box.width, box.height);
    }
}

void dgGLDriver::clip(const giBox2& device_box)
{
    flush();
    the_clip = device_box;
    if (the_device.modes_owner() == this)
        the_device.modes_owner(nullptr); // the scissor box is set again with the rest
}

void dgGLDriver::select_buffer(dgDoubleBuffer buffer)
{
    flush();
    the_window.select_buffer(buffer);
}

void dgGLDriver::swap_buffers(dgDoubleBufferSwap mode)
{
    flush();
    the_window.swap();
    if (mode != dgSWAP_AND_CLEAR)
        return;
    const dgDoubleBuffer selected = the_window.selected_buffer();
    select_buffer(dgBACK_BUFFER);
    begin();
    const dgBackground background = the_background;
    clear(the_window.device_box(), background, dgERASE_FRAMEBUFFER_YES, dgERASE_ZBUFFER_YES);
    end();
    select_buffer(selected);
}

void dgGLDriver::clear_box(const giBox2& device_box, unsigned planes, const float (&rgba)[4])
{
    if (the_device.lost())
        return;
    const int transparent = the_overlay && rgba[3] == 0;
    if (transparent && !the_window.overlay_made())
    {
        the_window.overlay_cleared(device_box);
        return;
    }
    need_layer();
    own_modes();
    set_scissor(device_box);
    glClearColor(rgba[0], rgba[1], rgba[2], rgba[3]);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glClear(planes);
    glDepthMask(!the_inverting);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, !the_inverting);
    set_scissor(the_camera.view_port);
    if (!(planes & GL_COLOR_BUFFER_BIT))
        return;
    if (transparent)
        the_window.overlay_cleared(device_box);
    else
        the_window.layer_drawn(the_overlay);
}

void dgGLDriver::clear(const giBox2& device_box, const dgBackground& background, dgEraseFramebuffer colour,
                       dgEraseZbuffer depth)
{
    flush();
    if (the_device.lost())
        return;
    // Depth and stencil lie in one buffer; clearing both is what drivers do fast.
    unsigned planes = depth ? GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT : 0;
    const auto& bottom = background.bottom;
    const auto& top = background.top;
    const int plain = std::equal(bottom, bottom + 3, top);
    // The overlay has no background: where nothing is drawn, the picture under it shows.
    if (colour && (plain || the_overlay))
        planes |= GL_COLOR_BUFFER_BIT;
    if (colour)
        the_background = background;
    clear_box(device_box, planes, {bottom[0], bottom[1], bottom[2], the_overlay ? 0.0f : 1.0f});
    if (!colour || plain || the_overlay)
        return;

    const dgGLPixels box = dg_gl_pixels(device_box);
    set_scissor(device_box);
    glViewport(0, 0, the_window.width(), the_window.height());
    for (const unsigned capability : {GL_DEPTH_TEST, GL_STENCIL_TEST, GL_COLOR_LOGIC_OP})
        glDisable(capability);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    the_device.programs().draw_graduated(bottom, top, box.y, box.y + box.height - 1);
    the_window.layer_drawn(the_overlay);
    the_device.modes_owner(nullptr);
}

void dgGLDriver::set_camera(const dgCameraState& camera)
{
    flush();
    the_camera = camera;
    the_transforms_changed = 1;
    the_state_stamp = next_stamp(); // cue colour and viewport
    if (the_device.modes_owner() != this)
        return; // it is set with the rest before the next drawing
    const dgGLPixels port = dg_gl_pixels(camera.view_port);
    glViewport(port.x, port.y, port.width, port.height);
    set_scissor(camera.view_port);
    set_capability(GL_DEPTH_TEST, camera.depth_test);
}

void dgGLDriver::set_model_transform(const giXform3& model_to_world)
{
    flush();
    the_model_to_world = model_to_world;
    the_transforms_changed = 1;
}

void dgGLDriver::set_state(const dgDrawState& state)
{
    if (state == the_state)
        return;
    flush();
    the_state = state;
    the_state_stamp = next_stamp();
}

const float* dgGLDriver::colour_of(dgTopology topology) const
{
    switch (topology)
    {
    case dgTOPOLOGY_POINTS: return the_state.marker_colour;
    case dgTOPOLOGY_LINES: return the_state.line_colour;
    case dgTOPOLOGY_TRIANGLES: return the_state.front_colour;
    case dgTOPOLOGY_TEXT: return the_state.text_colour;
    }
    return the_state.marker_colour;
}

// Whether what was drawn before had another colour; once it had, that is taken for granted until the next picture.
bool dgGLDriver::colours_change(const float* colour)
{
    the_colours_change |= the_last_colour_known && !std::equal(colour, colour + 3, the_last_colour);
    std::copy(colour, colour + 3, the_last_colour);
    the_last_colour_known = true;
    return the_colours_change;
}

// Puts the program, its values and the modes in force that draw under the current state, few features or more.
void dgGLDriver::prepare(dgTopology topology, int has_normals, const giPoint3& origin, bool few, int curved)
{
    need_layer();
    own_modes();
    if (the_transforms_changed || origin != the_origin)
    {
        the_origin = origin;
        the_transforms_changed = 0;
        the_transform_stamp = next_stamp();
        the_transforms.set(the_camera, the_model_to_world, origin);
    }
    const int triangles = topology == dgTOPOLOGY_TRIANGLES;
    const int lines = topology == dgTOPOLOGY_LINES;
    dgGLProgramKind kind;
    kind.sectioned = the_camera.sectioned;
    // What inverts has no shades: every pixel that it covers is treated alike.
    if (triangles && the_state.lighting && !the_inverting)
        kind.shading = has_normals ? dgGL_SHADE_SMOOTH : the_state.interior_style ? dgGL_SHADE_FLAT : dgGL_SHADE_PLAIN;
    kind.curved = curved && kind.shading == dgGL_SHADE_SMOOTH;
    kind.depth_cueing = the_camera.depth_cueing && !the_inverting;
    kind.line_style = lines && the_state.line_style;
    kind.wide_lines = lines && the_state.line_width > the_device.line_width_limit();
    kind.two_coloured =
        triangles && !std::equal(the_state.front_colour, the_state.front_colour + 3, the_state.back_colour);
    const float* const front = colour_of(topology);
    kind.passed_colour = few && !kind.two_coloured && !kind.wide_lines && colours_change(front);
    dgGLProgram* program = the_device.programs().find(kind);
    if (!program)
    {
        dgGLProgramKind plain;
        plain.sectioned = kind.sectioned;
        program = the_device.programs().find(plain);
    }
    the_device.programs().use(program->name);

    if (program->transform_stamp != the_transform_stamp)
    {
        program->transform_stamp = the_transform_stamp;
        glUniformMatrix4fv(program->model_to_clip, 1, GL_FALSE, the_transforms.model_to_clip);
        glUniformMatrix4fv(program->model_to_view, 1, GL_FALSE, the_transforms.model_to_view);
        glUniformMatrix3fv(program->normal_to_view, 1, GL_FALSE, the_transforms.normal_to_view);
        glUniform3fv(program->cue, 1, the_transforms.cue);
        glUniform4fv(program->section, 1, the_transforms.section);
    }
    if (program->state_stamp != the_state_stamp || program->topology != topology)
    {
        program->state_stamp = the_state_stamp;
        program->topology = topology;
        glUniform3fv(program->front_colour, 1, front);
        glUniform3fv(program->back_colour, 1, triangles ? the_state.back_colour : front);
        glUniform3fv(program->cue_colour, 1, the_camera.cue_colour);
        const dgGLPixels port = dg_gl_pixels(the_camera.view_port);
        glUniform4f(program->view_port, static_cast<float>(port.x), static_cast<float>(port.y), 0.5f * port.width,
                    0.5f * port.height);
        glUniform1f(program->line_width, the_state.line_width);
        glUniform1i(program->line_style, the_state.line_style);
        glUniform1f(program->point_size, std::max(the_state.marker_size, 1.0f));
    }
    if (triangles)
    {
        glFrontFace(the_transforms.mirrored ? GL_CW : GL_CCW);
        glPolygonMode(GL_FRONT_AND_BACK, the_state.interior_style ? GL_FILL : GL_LINE);
    }
    else
    {
        glFrontFace(GL_CCW);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    }
    glLineWidth(kind.wide_lines ? 1.0f : std::clamp(the_state.line_width, 1.0f, the_device.line_width_limit()));
    the_window.layer_drawn(the_overlay);
}

void dgGLDriver::prepare_run(const dgPrimitiveRun& run)
{
    if (the_device.lost())
        return;
    if (run.topology != dgTOPOLOGY_TEXT)
        the_device.geometry().store(run);
}

void dgGLDriver::draw_run(const dgPrimitiveRun& run)
{
    flush();
    if (the_device.lost())
        return;
    if (run.topology == dgTOPOLOGY_TEXT)
        return draw_texts(run, 0, static_cast<int>(run.primitives.size()));
    const dgGLIndexRanges& ranges = the_device.geometry().store(run);
    draw_ranges(run.topology, run.has_normals, ranges);
}

void dgGLDriver::draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans)
{
    flush();
    if (the_device.lost())
        return;
    if (run.topology == dgTOPOLOGY_TEXT)
    {
        for (const dgFeatureSpan& span : spans)
            draw_texts(run, span.first, span.first + span.count);
        return;
    }
    the_device.geometry().store(run, spans, the_selected);
    draw_ranges(run.topology, run.has_normals, the_selected);
}

int dgGLDriver::draw_simplified(const dgPrimitiveRun& run, int count, const std::vector<dgFeatureSpan>& seen)
{
    flush();
    if (the_device.lost())
        return 0;
    const int drawn = the_device.geometry().simplify(run, count, seen, the_selected);
    draw_ranges(run.topology, run.has_normals, the_selected);
    return drawn;
}

int dgGLDriver::simplifies() const
{
    return the_device.geometry().any_levels();
}

// The most pixels that a unit of length anywhere in a box of model space can take in view; infinitely many where the
// box reaches behind the eye. By the derivatives of X / w, where no X in view is larger than w.
double dgGLDriver::pixels_per_unit(const giBox3& box) const
{
    const giXform3 to_clip = the_model_to_world * the_camera.world_to_view * the_camera.projection;
    const auto gradient = [&](int column)
    { return std::hypot(to_clip(0, column), to_clip(1, column), to_clip(2, column)); };
    double least_w = std::numeric_limits<double>::infinity();
    for (int i = 0; i < 8; ++i)
    {
        const giPoint3 corner = box.corner(i);
        least_w = std::min(least_w, corner.x() * to_clip(0, 3) + corner.y() * to_clip(1, 3) +
                                        corner.z() * to_clip(2, 3) + to_clip(3, 3));
    }
    if (!(least_w > 0))
        return std::numeric_limits<double>::infinity();
    const dgGLPixels port = dg_gl_pixels(the_camera.view_port);
    return std::hypot(0.5 * port.width * (gradient(0) + gradient(3)), 0.5 * port.height * (gradient(1) + gradient(3))) /
           least_w;
}

int dgGLDriver::draw_coarsened(const dgPrimitiveRun& run, double pixels, const std::vector<dgFeatureSpan>& seen)
{
    flush();
    if (the_device.lost() || the_inverting)
        return 0;
    const auto error = [&](const dgGraphicalPrimitive& block)
    { return pixels / pixels_per_unit(block.bounding_box()); };
    if (!the_device.geometry().coarsen(run, error, seen, the_selected))
        return 0;
    draw_ranges(run.topology, run.has_normals, the_selected);
    return 1;
}

void dgGLDriver::show_back_buffer(const giBox2& device_box)
{
    the_window.show_back(device_box);
}

int dgGLDriver::add_to_sums(const giBox2& device_box, int anew)
{
    flush();
    return the_window.add_to_sums(device_box, anew);
}

void dgGLDriver::put_mean(const giBox2& device_box, int pictures)
{
    flush();
    the_window.put_mean(device_box, pictures);
}

giBox3 dgGLDriver::text_box(const dgText& text)
{
    if (the_device.lost())
        return {};
    const dgGLTextStore::Shape& shape = the_device.texts().shape(text, the_state.text, the_inverting);
    giBox3 box;
    if (shape.triangles)
        box = shape.triangles->bounding_box();
    for (const dgRef<dgPolyline>& line : shape.lines)
        box.merge(line->bounding_box());
    return box;
}

int dgGLDriver::fill_contours(const std::vector<std::vector<giPoint2>>& contours, std::vector<giPoint2>& points,
                              std::vector<giTriangle>& triangles)
{
    dgGLTriangles found;
    if (!dg_gl_tessellate(contours, found))
        return 0;
    points = std::move(found.points);
    triangles = std::move(found.triangles);
    return 1;
}

// What a text looks like depends on the state, so that the run keeps nothing. A text is one feature.
void dgGLDriver::draw_texts(const dgPrimitiveRun& run, int first, int end)
{
    with_text_look(
        [&]
        {
            for (int i = first; i < end; ++i)
                draw_text(static_cast<const dgText&>(*run.primitives[static_cast<std::size_t>(i)]));
        });
    flush();
}

// What is drawn of texts by lines has their colour.
template <class Draw>
void dgGLDriver::with_text_look(Draw draw)
{
    if (the_state.text.look == dgTEXT_FILLED || the_inverting)
        return draw();
    const dgDrawState before = the_state;
    dgDrawState lines = before;
    std::copy(before.text_colour, before.text_colour + 3, lines.line_colour);
    lines.line_width = 1;
    lines.line_style = 0;
    set_state(lines);
    draw();
    set_state(before);
}

void dgGLDriver::draw_text(const dgText& text)
{
    const dgGLTextStore::Shape& shape = the_device.texts().shape(text, the_state.text, the_inverting);
    if (shape.triangles)
        draw_stored(*shape.triangles, dgTOPOLOGY_TEXT, 0);
    for (const dgRef<dgPolyline>& line : shape.lines)
        draw_stored(*line, dgTOPOLOGY_LINES, 0);
}

void dgGLDriver::draw_primitive(const dgGraphicalPrimitive& primitive)
{
    if (the_device.lost())
        return;
    const dgGeometry geometry = primitive.geometry();
    if (geometry.topology != dgTOPOLOGY_TEXT)
        return draw_stored(primitive, geometry.topology, geometry.normals != nullptr);
    with_text_look([&] { draw_text(static_cast<const dgText&>(primitive)); });
}

void dgGLDriver::draw_stored(const dgGraphicalPrimitive& primitive, dgTopology topology, int has_normals)
{
    dgGLGeometryStore& store = the_device.geometry();
    // Copying may use the room of one that has gone since, but was drawn before.
    if (!store.is_stored(primitive))
        flush();
    if (!the_pending.empty() && (topology != the_pending_topology || has_normals != the_pending_normals))
        flush();
    const dgGLGeometryStore::Record& record = store.store(primitive);
    if (record.index_count == 0)
        return;
    the_pending_topology = topology;
    the_pending_normals = has_normals;
    the_pending.origin = record.origin;
    the_pending.add(record.first_index, record.index_count);
}

void dgGLDriver::draw_ranges(dgTopology topology, int has_normals, const dgGLIndexRanges& ranges)
{
    if (topology == dgTOPOLOGY_TRIANGLES && the_state.opacity < 1 && !the_inverting && !the_overlay)
        draw_see_through(has_normals, ranges);
    else
        draw_once(topology, has_normals, ranges);
}

// First what faces away, all of it in the order of the triangles, then of what faces the eye the nearest alone, which
// is found by its depth. So nothing depends on the order of the triangles but shades of back faces behind each other.
void dgGLDriver::draw_see_through(int has_normals, const dgGLIndexRanges& ranges)
{
    own_modes();
    const int filled = the_state.interior_style;
    glBlendColor(0, 0, 0, the_state.opacity);
    dg_gl_blend_factors(GL_CONSTANT_ALPHA, GL_ONE_MINUS_CONSTANT_ALPHA, GL_ZERO, GL_ONE);
    glEnable(GL_BLEND);
    glDepthMask(GL_FALSE);
    set_capability(GL_CULL_FACE, filled);
    glCullFace(GL_FRONT);
    draw_once(dgTOPOLOGY_TRIANGLES, has_normals, ranges);
    if (filled)
    {
        glCullFace(GL_BACK);
        glDepthMask(GL_TRUE);
        glColorMask(GL_FALSE, GL_FALSE, GL_FALSE, GL_FALSE);
        draw_once(dgTOPOLOGY_TRIANGLES, has_normals, ranges);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        draw_once(dgTOPOLOGY_TRIANGLES, has_normals, ranges);
    }
    glDisable(GL_CULL_FACE);
    glCullFace(GL_BACK);
    glDisable(GL_BLEND);
    glDepthMask(GL_TRUE);
}

void dgGLDriver::draw_once(dgTopology topology, int has_normals, const dgGLIndexRanges& ranges)
{
    const Section section(the_camera.sectioned);
    const dgGLGeometryStore& store = the_device.geometry();
    const unsigned mode = mode_of(topology);
    GLsizei indices = 0;
    for (std::size_t i = 0; i < ranges.counts.size() && indices < few_indices; ++i)
        indices += ranges.counts[i];
    std::size_t first = 0;
    for (const dgGLIndexRanges::Part& part : ranges.parts)
    {
        prepare(topology, has_normals, store.origin(part.origin), indices < few_indices, part.curved);
        store.bind();
        if (part.end - first == 1)
            glDrawElements(mode, ranges.counts[first], GL_UNSIGNED_INT, ranges.offsets[first]);
        else
            glMultiDrawElements(mode, ranges.counts.data() + first, GL_UNSIGNED_INT, ranges.offsets.data() + first,
                                static_cast<GLsizei>(part.end - first));
        first = part.end;
    }
}

void dgGLDriver::flush()
{
    if (the_device.lost())
        the_pending.clear();
    if (the_pending.empty())
        return;
    draw_ranges(the_pending_topology, the_pending_normals, the_pending);
    the_pending.clear();
}

void dgGLDriver::draw_segments(const giPoint3* points, int npoints)
{
    flush();
    if (the_device.lost())
        return;
    giBox3 box;
    for (int i = 0; i < npoints; ++i)
        box.merge(points[i]);
    if (box.empty())
        return;
    const giPoint3 origin = dgGLOrigins::for_box(box);
    std::vector<float> xyz;
    xyz.reserve(3 * static_cast<std::size_t>(npoints));
    for (int i = 0; i < npoints; ++i)
        for (int axis = 0; axis < 3; ++axis)
            xyz.push_back(static_cast<float>(points[i][axis] - origin[axis]));
    const Section section(the_camera.sectioned);
    prepare(dgTOPOLOGY_LINES, 0, origin, false, 0);
    the_device.stream_points(xyz.data(), npoints);
    glDrawArrays(GL_LINES, 0, npoints - npoints % 2);
}

void dgGLDriver::read_pixels(const giBox2& device_box, dgImage& image)
{
    flush();
    const dgGLPixels box = dg_gl_pixels(device_box);
    image.width = box.width;
    image.height = box.height;
    image.rgba.assign(std::size_t(4) * static_cast<std::size_t>(box.width) * static_cast<std::size_t>(box.height), 0);
    const int low_x = std::max(box.x, 0);
    const int low_y = std::max(box.y, 0);
    const int end_x = std::min(box.x + box.width, the_window.width());
    const int end_y = std::min(box.y + box.height, the_window.height());
    if (low_x >= end_x || low_y >= end_y || the_device.lost())
        return;
    begin();
    need_layer();
    own_modes();
    glPixelStorei(GL_PACK_ROW_LENGTH, box.width);
    glReadPixels(low_x, low_y, end_x - low_x, end_y - low_y, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.rgba.data() + 4 * (static_cast<std::size_t>(low_y - box.y) * box.width + (low_x - box.x)));
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    end();
}

void dgGLDriver::finish()
{
    if (!the_pending.empty())
        flush();
    the_device.finish();
}

void dgGLDriver::finish_all_but_last()
{
    if (!the_pending.empty())
        flush();
    the_device.finish_all_but_last();
}

const dgFeatureClusters* dgGLDriver::clusters(const dgGraphicalPrimitive& primitive)
{
    return the_device.clusters().find(primitive);
}

void dgGLDriver::gl_enable(unsigned capability)
{
    flush();
    const dgGLDevice::Use use(the_device);
    if (!use)
        return;
    own_modes();
    if (capability == GL_STENCIL_TEST)
        the_stencil.on = 1;
    if (capability == GL_DEPTH_CLAMP)
        the_depth_clamped = 1;
    glEnable(capability);
}

void dgGLDriver::gl_disable(unsigned capability)
{
    flush();
    const dgGLDevice::Use use(the_device);
    if (!use)
        return;
    own_modes();
    if (capability == GL_STENCIL_TEST)
        the_stencil.on = 0;
    if (capability == GL_DEPTH_CLAMP)
        the_depth_clamped = 0;
    glDisable(capability);
}

void dgGLDriver::gl_stencil_func(unsigned function, int reference, unsigned mask)
{
    flush();
    const dgGLDevice::Use use(the_device);
    if (!use)
        return;
    own_modes();
    the_stencil.function = function;
    the_stencil.reference = reference;
    the_stencil.mask = mask;
    glStencilFunc(function, reference, mask);
}

void dgGLDriver::gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes)
{
    flush();
    const dgGLDevice::Use use(the_device);
    if (!use)
        return;
    own_modes();
    the_stencil.operations[0] = stencil_fails;
    the_stencil.operations[1] = depth_fails;
    the_stencil.operations[2] = depth_passes;
    glStencilOp(stencil_fails, depth_fails, depth_passes);
}

void dgGLDriver::erase_area(const giBox2& device_box, const gsColour& colour, dgEraseFramebuffer framebuffer,
                            dgEraseZbuffer zbuffer)
{
    flush();
    begin();
    unsigned planes = (framebuffer ? GL_COLOR_BUFFER_BIT : 0) | (zbuffer ? GL_DEPTH_BUFFER_BIT : 0);
    if (!planes)
        planes = GL_STENCIL_BUFFER_BIT;
    clear_box(
        device_box, planes,
        {static_cast<float>(colour.red()), static_cast<float>(colour.green()), static_cast<float>(colour.blue()), 1});
    end();
}
