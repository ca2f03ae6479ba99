#include "dgGLStateGuard.h"

#include "dgGLDevice.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <array>
#include <vector>

namespace
{
// OpenGL 3.3 is 33 here. What a context does not know is left out.
struct Capability
{
    unsigned name;
    int since;
    bool initially;
};
constexpr Capability capabilities[] = {
    {GL_BLEND, 33, false},
    {GL_COLOR_LOGIC_OP, 33, false},
    {GL_CULL_FACE, 33, false},
    {GL_DEPTH_CLAMP, 33, false},
    {GL_DEPTH_TEST, 33, false},
    {GL_DITHER, 33, true},
    {GL_FRAMEBUFFER_SRGB, 33, false},
    {GL_LINE_SMOOTH, 33, false},
    {GL_MULTISAMPLE, 33, true},
    {GL_POLYGON_OFFSET_FILL, 33, false},
    {GL_POLYGON_OFFSET_LINE, 33, false},
    {GL_POLYGON_OFFSET_POINT, 33, false},
    {GL_POLYGON_SMOOTH, 33, false},
    {GL_PRIMITIVE_RESTART, 33, false},
    {GL_PRIMITIVE_RESTART_FIXED_INDEX, 43, false},
    {GL_PROGRAM_POINT_SIZE, 33, false},
    {GL_RASTERIZER_DISCARD, 33, false},
    {GL_SAMPLE_ALPHA_TO_COVERAGE, 33, false},
    {GL_SAMPLE_ALPHA_TO_ONE, 33, false},
    {GL_SAMPLE_COVERAGE, 33, false},
    {GL_SAMPLE_MASK, 33, false},
    {GL_SAMPLE_SHADING, 40, false},
    {GL_SCISSOR_TEST, 33, false},
    {GL_STENCIL_TEST, 33, false},
    {GL_CLIP_DISTANCE0, 33, false},
    {GL_CLIP_DISTANCE1, 33, false},
    {GL_CLIP_DISTANCE2, 33, false},
    {GL_CLIP_DISTANCE3, 33, false},
    {GL_CLIP_DISTANCE4, 33, false},
    {GL_CLIP_DISTANCE5, 33, false},
    {GL_CLIP_DISTANCE6, 33, false},
    {GL_CLIP_DISTANCE7, 33, false},
};

struct PixelStorage
{
    unsigned name;
    int initially;
};
constexpr PixelStorage pixel_storage[] = {
    {GL_PACK_SWAP_BYTES, 0},    {GL_PACK_LSB_FIRST, 0},    {GL_PACK_ROW_LENGTH, 0},  {GL_PACK_IMAGE_HEIGHT, 0},
    {GL_PACK_SKIP_ROWS, 0},     {GL_PACK_SKIP_PIXELS, 0},  {GL_PACK_SKIP_IMAGES, 0}, {GL_PACK_ALIGNMENT, 4},
    {GL_UNPACK_SWAP_BYTES, 0},  {GL_UNPACK_LSB_FIRST, 0},  {GL_UNPACK_ROW_LENGTH, 0}, {GL_UNPACK_IMAGE_HEIGHT, 0},
    {GL_UNPACK_SKIP_ROWS, 0},   {GL_UNPACK_SKIP_PIXELS, 0}, {GL_UNPACK_SKIP_IMAGES, 0}, {GL_UNPACK_ALIGNMENT, 4},
};

// Values that are set by one call each, as whole numbers or as floating-point ones.
template <class Number>
struct Value
{
    unsigned name;
    std::array<Number, 4> initially;
    void (*set)(const std::array<Number, 4>& value);
    int since = 33;
};
using Ints = std::array<int, 4>;
using Floats = std::array<float, 4>;

constexpr unsigned all = ~0u;
const Value<int> int_values[] = {
    {GL_VERTEX_ARRAY_BINDING, {0}, [](const Ints& v) { glBindVertexArray(unsigned(v[0])); }},
    {GL_CURRENT_PROGRAM, {0}, [](const Ints& v) { glUseProgram(unsigned(v[0])); }},
    {GL_ARRAY_BUFFER_BINDING, {0}, [](const Ints& v) { glBindBuffer(GL_ARRAY_BUFFER, unsigned(v[0])); }},
    {GL_COPY_READ_BUFFER_BINDING, {0}, [](const Ints& v) { glBindBuffer(GL_COPY_READ_BUFFER, unsigned(v[0])); }},
    {GL_COPY_WRITE_BUFFER_BINDING, {0}, [](const Ints& v) { glBindBuffer(GL_COPY_WRITE_BUFFER, unsigned(v[0])); }},
    {GL_PIXEL_PACK_BUFFER_BINDING, {0}, [](const Ints& v) { glBindBuffer(GL_PIXEL_PACK_BUFFER, unsigned(v[0])); }},
    {GL_PIXEL_UNPACK_BUFFER_BINDING, {0}, [](const Ints& v) { glBindBuffer(GL_PIXEL_UNPACK_BUFFER, unsigned(v[0])); }},
    {GL_RENDERBUFFER_BINDING, {0}, [](const Ints& v) { glBindRenderbuffer(GL_RENDERBUFFER, unsigned(v[0])); }},
    {GL_DRAW_FRAMEBUFFER_BINDING, {0}, [](const Ints& v) { glBindFramebuffer(GL_DRAW_FRAMEBUFFER, unsigned(v[0])); }},
    {GL_READ_FRAMEBUFFER_BINDING, {0}, [](const Ints& v) { glBindFramebuffer(GL_READ_FRAMEBUFFER, unsigned(v[0])); }},
    {GL_CULL_FACE_MODE, {GL_BACK}, [](const Ints& v) { glCullFace(unsigned(v[0])); }},
    {GL_DEPTH_FUNC, {GL_LESS}, [](const Ints& v) { glDepthFunc(unsigned(v[0])); }},
    {GL_DEPTH_WRITEMASK, {GL_TRUE}, [](const Ints& v) { glDepthMask(v[0] != 0); }},
    {GL_FRONT_FACE, {GL_CCW}, [](const Ints& v) { glFrontFace(unsigned(v[0])); }},
    {GL_LOGIC_OP_MODE, {GL_COPY}, [](const Ints& v) { glLogicOp(unsigned(v[0])); }},
    {GL_POLYGON_MODE, {GL_FILL}, [](const Ints& v) { glPolygonMode(GL_FRONT_AND_BACK, unsigned(v[0])); }},
    {GL_PROVOKING_VERTEX, {GL_LAST_VERTEX_CONVENTION}, [](const Ints& v) { glProvokingVertex(unsigned(v[0])); }},
    {GL_PRIMITIVE_RESTART_INDEX, {0}, [](const Ints& v) { glPrimitiveRestartIndex(unsigned(v[0])); }},
    {GL_STENCIL_CLEAR_VALUE, {0}, [](const Ints& v) { glClearStencil(v[0]); }},
    {GL_STENCIL_WRITEMASK, {int(all)}, [](const Ints& v) { glStencilMaskSeparate(GL_FRONT, unsigned(v[0])); }},
    {GL_STENCIL_BACK_WRITEMASK, {int(all)}, [](const Ints& v) { glStencilMaskSeparate(GL_BACK, unsigned(v[0])); }},
    {GL_CLAMP_READ_COLOR, {GL_FIXED_ONLY}, [](const Ints& v) { glClampColor(GL_CLAMP_READ_COLOR, unsigned(v[0])); }},
};

const Value<float> float_values[] = {
    {GL_COLOR_CLEAR_VALUE, {0, 0, 0, 0}, [](const Floats& v) { glClearColor(v[0], v[1], v[2], v[3]); }},
    {GL_DEPTH_CLEAR_VALUE, {1}, [](const Floats& v) { glClearDepth(double(v[0])); }},
    {GL_LINE_WIDTH, {1}, [](const Floats& v) { glLineWidth(v[0]); }},
    {GL_POINT_SIZE, {1}, [](const Floats& v) { glPointSize(v[0]); }},
    {GL_MIN_SAMPLE_SHADING_VALUE, {0}, [](const Floats& v) { glMinSampleShading(v[0]); }, 40},
};

struct StencilSide
{
    int function, reference, value_mask, fail, depth_fail, depth_pass;
};

int integer(unsigned name)
{
    int values[4] = {};
    glGetIntegerv(name, values);
    return values[0];
}

void set_capability(unsigned name, bool on)
{
    if (on)
        glEnable(name);
    else
        glDisable(name);
}
}

// Indexed state (viewports from OpenGL 4.1 on, draw buffers) is set for all indices by the plain calls.
struct dgGLStateGuard::Saved
{
    Saved() { record(); }

    void record();
    void put_back() const;

    struct DrawBuffer
    {
        bool blend;
        unsigned char colour_mask[4];
    };
    struct Port
    {
        float box[4];
        double depth[2];
        bool scissor_test;
        int scissor[4];
    };
    std::array<bool, std::size(capabilities)> on;
    std::array<int, std::size(pixel_storage)> storage;
    std::array<Ints, std::size(int_values)> ints;
    std::array<Floats, std::size(float_values)> floats;
    std::vector<DrawBuffer> draw_buffers;
    std::vector<Port> ports;
    StencilSide stencil[2]; // front, back
    float offset[2];
    int clip_control[2];
    int active_texture, texture, sampler;
};

void dgGLStateGuard::Saved::record()
{
    const int version = epoxy_gl_version();
    for (std::size_t i = 0; i < on.size(); ++i)
        on[i] = version >= capabilities[i].since && glIsEnabled(capabilities[i].name);
    for (std::size_t i = 0; i < storage.size(); ++i)
        glGetIntegerv(pixel_storage[i].name, &storage[i]);
    for (std::size_t i = 0; i < ints.size(); ++i)
        glGetIntegerv(int_values[i].name, ints[i].data());
    for (std::size_t i = 0; i < floats.size(); ++i)
        if (version >= float_values[i].since)
            glGetFloatv(float_values[i].name, floats[i].data());

    draw_buffers.resize(std::size_t(integer(GL_MAX_DRAW_BUFFERS)));
    for (unsigned i = 0; i < draw_buffers.size(); ++i)
    {
        draw_buffers[i].blend = glIsEnabledi(GL_BLEND, i);
        glGetBooleani_v(GL_COLOR_WRITEMASK, i, draw_buffers[i].colour_mask);
    }
    ports.resize(version >= 41 ? std::size_t(integer(GL_MAX_VIEWPORTS)) : 1);
    for (unsigned i = 0; i < ports.size(); ++i)
        if (version >= 41)
        {
            glGetFloati_v(GL_VIEWPORT, i, ports[i].box);
            glGetDoublei_v(GL_DEPTH_RANGE, i, ports[i].depth);
            glGetIntegeri_v(GL_SCISSOR_BOX, i, ports[i].scissor);
            ports[i].scissor_test = glIsEnabledi(GL_SCISSOR_TEST, i);
        }
        else
        {
            glGetFloatv(GL_VIEWPORT, ports[i].box);
            glGetDoublev(GL_DEPTH_RANGE, ports[i].depth);
            glGetIntegerv(GL_SCISSOR_BOX, ports[i].scissor);
            ports[i].scissor_test = glIsEnabled(GL_SCISSOR_TEST);
        }
    stencil[0] = {integer(GL_STENCIL_FUNC), integer(GL_STENCIL_REF), integer(GL_STENCIL_VALUE_MASK),
                  integer(GL_STENCIL_FAIL), integer(GL_STENCIL_PASS_DEPTH_FAIL), integer(GL_STENCIL_PASS_DEPTH_PASS)};
    stencil[1] = {integer(GL_STENCIL_BACK_FUNC), integer(GL_STENCIL_BACK_REF), integer(GL_STENCIL_BACK_VALUE_MASK),
                  integer(GL_STENCIL_BACK_FAIL), integer(GL_STENCIL_BACK_PASS_DEPTH_FAIL),
                  integer(GL_STENCIL_BACK_PASS_DEPTH_PASS)};
    glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &offset[0]);
    glGetFloatv(GL_POLYGON_OFFSET_UNITS, &offset[1]);
    clip_control[0] = version >= 45 ? integer(GL_CLIP_ORIGIN) : GL_LOWER_LEFT;
    clip_control[1] = version >= 45 ? integer(GL_CLIP_DEPTH_MODE) : GL_NEGATIVE_ONE_TO_ONE;
    active_texture = integer(GL_ACTIVE_TEXTURE);
    glActiveTexture(GL_TEXTURE0);
    texture = integer(GL_TEXTURE_BINDING_2D);
    sampler = integer(GL_SAMPLER_BINDING);
}

void dgGLStateGuard::Saved::put_back() const
{
    const int version = epoxy_gl_version();
    for (std::size_t i = 0; i < on.size(); ++i)
        if (version >= capabilities[i].since)
            set_capability(capabilities[i].name, on[i]);
    for (std::size_t i = 0; i < storage.size(); ++i)
        glPixelStorei(pixel_storage[i].name, storage[i]);
    for (std::size_t i = 0; i < ints.size(); ++i)
        int_values[i].set(ints[i]);
    for (std::size_t i = 0; i < floats.size(); ++i)
        if (version >= float_values[i].since)
            float_values[i].set(floats[i]);

    for (unsigned i = 0; i < draw_buffers.size(); ++i)
    {
        if (draw_buffers[i].blend)
            glEnablei(GL_BLEND, i);
        else
            glDisablei(GL_BLEND, i);
        const unsigned char(&mask)[4] = draw_buffers[i].colour_mask;
        glColorMaski(i, mask[0], mask[1], mask[2], mask[3]);
    }
    for (unsigned i = 0; i < ports.size(); ++i)
        if (version >= 41)
        {
            glViewportIndexedfv(i, ports[i].box);
            glDepthRangeIndexed(i, ports[i].depth[0], ports[i].depth[1]);
            glScissorIndexedv(i, ports[i].scissor);
            if (ports[i].scissor_test)
                glEnablei(GL_SCISSOR_TEST, i);
            else
                glDisablei(GL_SCISSOR_TEST, i);
        }
        else
        {
            const float(&box)[4] = ports[i].box;
            glViewport(int(box[0]), int(box[1]), int(box[2]), int(box[3]));
            glDepthRange(ports[i].depth[0], ports[i].depth[1]);
            const int(&scissor)[4] = ports[i].scissor;
            glScissor(scissor[0], scissor[1], scissor[2], scissor[3]);
        }
    for (const int side : {0, 1})
    {
        const unsigned face = side ? GL_BACK : GL_FRONT;
        const StencilSide& of = stencil[side];
        glStencilFuncSeparate(face, unsigned(of.function), of.reference, unsigned(of.value_mask));
        glStencilOpSeparate(face, unsigned(of.fail), unsigned(of.depth_fail), unsigned(of.depth_pass));
    }
    glPolygonOffset(offset[0], offset[1]);
    if (version >= 45)
        glClipControl(unsigned(clip_control[0]), unsigned(clip_control[1]));
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, unsigned(texture));
    glBindSampler(0, unsigned(sampler));
    glActiveTexture(unsigned(active_texture));
}

dgGLStateGuard::dgGLStateGuard(dgGLDevice& device) : the_device(device), the_saved(std::make_unique<Saved>())
{
    Saved fresh = *the_saved;
    for (std::size_t i = 0; i < fresh.on.size(); ++i)
        fresh.on[i] = capabilities[i].initially;
    for (std::size_t i = 0; i < fresh.storage.size(); ++i)
        fresh.storage[i] = pixel_storage[i].initially;
    for (std::size_t i = 0; i < fresh.ints.size(); ++i)
        fresh.ints[i] = int_values[i].initially;
    for (std::size_t i = 0; i < fresh.floats.size(); ++i)
        fresh.floats[i] = float_values[i].initially;
    std::fill(fresh.draw_buffers.begin(), fresh.draw_buffers.end(), Saved::DrawBuffer{false, {1, 1, 1, 1}});
    for (Saved::Port& port : fresh.ports) // boxes are set before each drawing
    {
        port.depth[0] = 0;
        port.depth[1] = 1;
        port.scissor_test = false;
    }
    fresh.stencil[0] = fresh.stencil[1] = {GL_ALWAYS, 0, int(all), GL_KEEP, GL_KEEP, GL_KEEP};
    fresh.offset[0] = fresh.offset[1] = 0;
    fresh.clip_control[0] = GL_LOWER_LEFT;
    fresh.clip_control[1] = GL_NEGATIVE_ONE_TO_ONE;
    fresh.active_texture = GL_TEXTURE0;
    fresh.texture = fresh.sampler = 0;
    fresh.put_back();
    the_device.forget_state();
}

dgGLStateGuard::~dgGLStateGuard()
{
    the_device.forget_state();
    the_saved->put_back();
}
