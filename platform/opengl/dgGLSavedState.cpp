#include "dgGLSavedState.h"

#include <epoxy/gl.h>

#include <algorithm>

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
    {GL_PACK_SWAP_BYTES, 0},   {GL_PACK_LSB_FIRST, 0},     {GL_PACK_ROW_LENGTH, 0},    {GL_PACK_IMAGE_HEIGHT, 0},
    {GL_PACK_SKIP_ROWS, 0},    {GL_PACK_SKIP_PIXELS, 0},   {GL_PACK_SKIP_IMAGES, 0},   {GL_PACK_ALIGNMENT, 4},
    {GL_UNPACK_SWAP_BYTES, 0}, {GL_UNPACK_LSB_FIRST, 0},   {GL_UNPACK_ROW_LENGTH, 0},  {GL_UNPACK_IMAGE_HEIGHT, 0},
    {GL_UNPACK_SKIP_ROWS, 0},  {GL_UNPACK_SKIP_PIXELS, 0}, {GL_UNPACK_SKIP_IMAGES, 0}, {GL_UNPACK_ALIGNMENT, 4},
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
    {GL_BLEND_COLOR, {0, 0, 0, 0}, [](const Floats& v) { glBlendColor(v[0], v[1], v[2], v[3]); }},
    {GL_COLOR_CLEAR_VALUE, {0, 0, 0, 0}, [](const Floats& v) { glClearColor(v[0], v[1], v[2], v[3]); }},
    {GL_DEPTH_CLEAR_VALUE, {1}, [](const Floats& v) { glClearDepth(double(v[0])); }},
    {GL_LINE_WIDTH, {1}, [](const Floats& v) { glLineWidth(v[0]); }},
    {GL_POINT_SIZE, {1}, [](const Floats& v) { glPointSize(v[0]); }},
    {GL_MIN_SAMPLE_SHADING_VALUE, {0}, [](const Floats& v) { glMinSampleShading(v[0]); }, 40},
};

// Those of the first draw buffer, for which OpenGL 4 has functions of its own.
constexpr unsigned blending[] = {GL_BLEND_EQUATION_RGB, GL_BLEND_EQUATION_ALPHA, GL_BLEND_SRC_RGB,
                                 GL_BLEND_DST_RGB,      GL_BLEND_SRC_ALPHA,      GL_BLEND_DST_ALPHA};

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

void dgGLSavedState::record()
{
    static_assert(std::size(capabilities) == n_capabilities && std::size(pixel_storage) == n_pixel_storage &&
                  std::size(int_values) == n_ints && std::size(float_values) == n_floats);
    const int version = epoxy_gl_version();
    for (std::size_t i = 0; i < the_capabilities.size(); ++i)
        the_capabilities[i] = version >= capabilities[i].since && glIsEnabled(capabilities[i].name);
    for (std::size_t i = 0; i < the_pixel_storage.size(); ++i)
        glGetIntegerv(pixel_storage[i].name, &the_pixel_storage[i]);
    for (std::size_t i = 0; i < the_ints.size(); ++i)
        glGetIntegerv(int_values[i].name, the_ints[i].data());
    for (std::size_t i = 0; i < the_floats.size(); ++i)
        if (version >= float_values[i].since)
            glGetFloatv(float_values[i].name, the_floats[i].data());

    the_draw_buffers.resize(std::size_t(integer(GL_MAX_DRAW_BUFFERS)));
    for (unsigned i = 0; i < the_draw_buffers.size(); ++i)
    {
        the_draw_buffers[i].blend = glIsEnabledi(GL_BLEND, i);
        glGetBooleani_v(GL_COLOR_WRITEMASK, i, the_draw_buffers[i].colour_mask);
    }
    the_ports.resize(version >= 41 ? std::size_t(integer(GL_MAX_VIEWPORTS)) : 1);
    for (unsigned i = 0; i < the_ports.size(); ++i)
        if (version >= 41)
        {
            glGetFloati_v(GL_VIEWPORT, i, the_ports[i].box);
            glGetDoublei_v(GL_DEPTH_RANGE, i, the_ports[i].depth);
            glGetIntegeri_v(GL_SCISSOR_BOX, i, the_ports[i].scissor);
            the_ports[i].scissor_test = glIsEnabledi(GL_SCISSOR_TEST, i);
        }
        else
        {
            glGetFloatv(GL_VIEWPORT, the_ports[i].box);
            glGetDoublev(GL_DEPTH_RANGE, the_ports[i].depth);
            glGetIntegerv(GL_SCISSOR_BOX, the_ports[i].scissor);
            the_ports[i].scissor_test = glIsEnabled(GL_SCISSOR_TEST);
        }
    the_stencil[0] = {integer(GL_STENCIL_FUNC),
                      integer(GL_STENCIL_REF),
                      integer(GL_STENCIL_VALUE_MASK),
                      integer(GL_STENCIL_FAIL),
                      integer(GL_STENCIL_PASS_DEPTH_FAIL),
                      integer(GL_STENCIL_PASS_DEPTH_PASS)};
    the_stencil[1] = {integer(GL_STENCIL_BACK_FUNC),
                      integer(GL_STENCIL_BACK_REF),
                      integer(GL_STENCIL_BACK_VALUE_MASK),
                      integer(GL_STENCIL_BACK_FAIL),
                      integer(GL_STENCIL_BACK_PASS_DEPTH_FAIL),
                      integer(GL_STENCIL_BACK_PASS_DEPTH_PASS)};
    glGetFloatv(GL_POLYGON_OFFSET_FACTOR, &the_offset[0]);
    glGetFloatv(GL_POLYGON_OFFSET_UNITS, &the_offset[1]);
    the_clip_control[0] = version >= 45 ? integer(GL_CLIP_ORIGIN) : GL_LOWER_LEFT;
    the_clip_control[1] = version >= 45 ? integer(GL_CLIP_DEPTH_MODE) : GL_NEGATIVE_ONE_TO_ONE;
    the_active_texture = integer(GL_ACTIVE_TEXTURE);
    glActiveTexture(GL_TEXTURE0);
    the_texture = integer(GL_TEXTURE_BINDING_2D);
    the_sampler = integer(GL_SAMPLER_BINDING);
    std::transform(std::begin(blending), std::end(blending), the_blending.begin(), integer);
}

void dgGLSavedState::put_back() const
{
    const int version = epoxy_gl_version();
    for (std::size_t i = 0; i < the_capabilities.size(); ++i)
        if (version >= capabilities[i].since)
            set_capability(capabilities[i].name, the_capabilities[i]);
    for (std::size_t i = 0; i < the_pixel_storage.size(); ++i)
        glPixelStorei(pixel_storage[i].name, the_pixel_storage[i]);
    for (std::size_t i = 0; i < the_ints.size(); ++i)
        int_values[i].set(the_ints[i]);
    for (std::size_t i = 0; i < the_floats.size(); ++i)
        if (version >= float_values[i].since)
            float_values[i].set(the_floats[i]);

    for (unsigned i = 0; i < the_draw_buffers.size(); ++i)
    {
        if (the_draw_buffers[i].blend)
            glEnablei(GL_BLEND, i);
        else
            glDisablei(GL_BLEND, i);
        const unsigned char(&mask)[4] = the_draw_buffers[i].colour_mask;
        glColorMaski(i, mask[0], mask[1], mask[2], mask[3]);
    }
    for (unsigned i = 0; i < the_ports.size(); ++i)
        if (version >= 41)
        {
            glViewportIndexedfv(i, the_ports[i].box);
            glDepthRangeIndexed(i, the_ports[i].depth[0], the_ports[i].depth[1]);
            glScissorIndexedv(i, the_ports[i].scissor);
            if (the_ports[i].scissor_test)
                glEnablei(GL_SCISSOR_TEST, i);
            else
                glDisablei(GL_SCISSOR_TEST, i);
        }
        else
        {
            const float(&box)[4] = the_ports[i].box;
            glViewport(int(box[0]), int(box[1]), int(box[2]), int(box[3]));
            glDepthRange(the_ports[i].depth[0], the_ports[i].depth[1]);
            const int(&scissor)[4] = the_ports[i].scissor;
            glScissor(scissor[0], scissor[1], scissor[2], scissor[3]);
        }
    for (const int side : {0, 1})
    {
        const unsigned face = side ? GL_BACK : GL_FRONT;
        const StencilSide& of = the_stencil[side];
        glStencilFuncSeparate(face, unsigned(of.function), of.reference, unsigned(of.value_mask));
        glStencilOpSeparate(face, unsigned(of.fail), unsigned(of.depth_fail), unsigned(of.depth_pass));
    }
    glPolygonOffset(the_offset[0], the_offset[1]);
    const auto blending_value = [this](std::size_t i) { return unsigned(the_blending[i]); };
    if (version >= 40)
        glBlendEquationSeparatei(0, blending_value(0), blending_value(1));
    else
        glBlendEquationSeparate(blending_value(0), blending_value(1));
    dg_gl_blend_factors(blending_value(2), blending_value(3), blending_value(4), blending_value(5));
    if (version >= 45)
        glClipControl(unsigned(the_clip_control[0]), unsigned(the_clip_control[1]));
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, unsigned(the_texture));
    glBindSampler(0, unsigned(the_sampler));
    glActiveTexture(unsigned(the_active_texture));
}

dgGLSavedState dgGLSavedState::initial() const
{
    dgGLSavedState fresh = *this;
    for (std::size_t i = 0; i < fresh.the_capabilities.size(); ++i)
        fresh.the_capabilities[i] = capabilities[i].initially;
    for (std::size_t i = 0; i < fresh.the_pixel_storage.size(); ++i)
        fresh.the_pixel_storage[i] = pixel_storage[i].initially;
    for (std::size_t i = 0; i < fresh.the_ints.size(); ++i)
        fresh.the_ints[i] = int_values[i].initially;
    for (std::size_t i = 0; i < fresh.the_floats.size(); ++i)
        fresh.the_floats[i] = float_values[i].initially;
    std::fill(fresh.the_draw_buffers.begin(), fresh.the_draw_buffers.end(), DrawBuffer{false, {1, 1, 1, 1}});
    for (Port& port : fresh.the_ports) // boxes are set before each drawing
    {
        port.depth[0] = 0;
        port.depth[1] = 1;
        port.scissor_test = false;
    }
    fresh.the_blending = {GL_FUNC_ADD, GL_FUNC_ADD, GL_ONE, GL_ZERO, GL_ONE, GL_ZERO};
    fresh.the_stencil[0] = fresh.the_stencil[1] = {GL_ALWAYS, 0, int(all), GL_KEEP, GL_KEEP, GL_KEEP};
    fresh.the_offset[0] = fresh.the_offset[1] = 0;
    fresh.the_clip_control[0] = GL_LOWER_LEFT;
    fresh.the_clip_control[1] = GL_NEGATIVE_ONE_TO_ONE;
    fresh.the_active_texture = GL_TEXTURE0;
    fresh.the_texture = fresh.the_sampler = 0;
    return fresh;
}

void dg_gl_blend_factors(unsigned source, unsigned target, unsigned source_alpha, unsigned target_alpha)
{
    if (epoxy_gl_version() >= 40)
        glBlendFuncSeparatei(0, source, target, source_alpha, target_alpha);
    else
        glBlendFuncSeparate(source, target, source_alpha, target_alpha);
}
