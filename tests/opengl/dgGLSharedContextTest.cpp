#include "renderScene.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLHostArea.h"
#include "dgOpacity.h"
#include "dgPolyline.h"
#include "dgTriangleBlock.h"

#include <epoxy/gl.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

// Drawing in a context in which the application draws too, whatever state it has left.
namespace
{
// One state that the application may leave, and what it finds there afterwards.
struct State
{
    std::string name;
    std::function<void()> set;
    std::function<double()> ask;
};

double integer(unsigned name)
{
    int values[4] = {};
    glGetIntegerv(name, values);
    return values[0] + 1e3 * values[1];
}

double real(unsigned name)
{
    float values[4] = {};
    glGetFloatv(name, values);
    return values[0] + 10.0 * values[1];
}

unsigned new_buffer()
{
    unsigned buffer = 0;
    glGenBuffers(1, &buffer);
    return buffer;
}

std::vector<State> states()
{
    std::vector<State> all;
    for (const unsigned capability :
         {GL_BLEND, GL_COLOR_LOGIC_OP, GL_CULL_FACE, GL_DEPTH_TEST, GL_DITHER, GL_FRAMEBUFFER_SRGB,
          GL_POLYGON_OFFSET_FILL, GL_PRIMITIVE_RESTART, GL_RASTERIZER_DISCARD, GL_SAMPLE_MASK, GL_SCISSOR_TEST,
          GL_STENCIL_TEST, GL_CLIP_DISTANCE0, GL_PROGRAM_POINT_SIZE})
        all.push_back({"capability " + std::to_string(capability),
                       [capability] { (glIsEnabled(capability) ? glDisable : glEnable)(capability); },
                       [capability] { return glIsEnabled(capability); }});
    for (const unsigned storage :
         {GL_PACK_SKIP_PIXELS, GL_PACK_SKIP_ROWS, GL_PACK_ROW_LENGTH, GL_PACK_SWAP_BYTES, GL_UNPACK_ROW_LENGTH})
        all.push_back({"pixel storage " + std::to_string(storage), [storage] { glPixelStorei(storage, 1); },
                       [storage] { return integer(storage); }});
    const struct
    {
        unsigned name;
        double (*ask)(unsigned);
        void (*set)();
    } plain[] = {
        {GL_DEPTH_CLEAR_VALUE, real, [] { glClearDepth(0); }},
        {GL_STENCIL_CLEAR_VALUE, integer, [] { glClearStencil(7); }},
        {GL_COLOR_CLEAR_VALUE, real, [] { glClearColor(0.5f, 0.25f, 0, 0); }},
        {GL_DEPTH_RANGE, real, [] { glDepthRange(1, 0.25); }},
        {GL_DEPTH_FUNC, integer, [] { glDepthFunc(GL_NEVER); }},
        {GL_DEPTH_WRITEMASK, integer, [] { glDepthMask(GL_FALSE); }},
        {GL_COLOR_WRITEMASK, integer, [] { glColorMask(0, 1, 0, 1); }},
        {GL_STENCIL_WRITEMASK, integer, [] { glStencilMask(1); }},
        {GL_STENCIL_BACK_FUNC, integer, [] { glStencilFuncSeparate(GL_BACK, GL_NEVER, 3, 1); }},
        {GL_BLEND_SRC_RGB, integer, [] { glBlendFunc(GL_ZERO, GL_DST_COLOR); }},
        {GL_BLEND_DST_ALPHA, integer, [] { glBlendFuncSeparate(GL_ONE, GL_ZERO, GL_ONE, GL_DST_COLOR); }},
        {GL_BLEND_COLOR, real, [] { glBlendColor(0.25f, 0.5f, 0, 0); }},
        {GL_BLEND_EQUATION_RGB, integer, [] { glBlendEquation(GL_MAX); }},
        {GL_FRONT_FACE, integer, [] { glFrontFace(GL_CW); }},
        {GL_POLYGON_MODE, integer, [] { glPolygonMode(GL_FRONT_AND_BACK, GL_POINT); }},
        {GL_PROVOKING_VERTEX, integer, [] { glProvokingVertex(GL_FIRST_VERTEX_CONVENTION); }},
        {GL_VIEWPORT, integer, [] { glViewport(3, 4, 5, 6); }},
        {GL_SCISSOR_BOX, integer, [] { glScissor(3, 4, 5, 6); }},
        {GL_CLIP_ORIGIN, integer, [] { glClipControl(GL_UPPER_LEFT, GL_ZERO_TO_ONE); }},
        {GL_PIXEL_PACK_BUFFER_BINDING, integer, [] { glBindBuffer(GL_PIXEL_PACK_BUFFER, new_buffer()); }},
    };
    for (const auto& state : plain)
        if (state.name != GL_CLIP_ORIGIN || epoxy_gl_version() >= 45)
            all.push_back({std::to_string(state.name), state.set, [state] { return state.ask(state.name); }});
    all.push_back({"vertex array",
                   []
                   {
                       unsigned vertex_array = 0;
                       glGenVertexArrays(1, &vertex_array);
                       glBindVertexArray(vertex_array);
                       glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, new_buffer());
                   },
                   [] { return integer(GL_VERTEX_ARRAY_BINDING) + 1e3 * integer(GL_ELEMENT_ARRAY_BUFFER_BINDING); }});
    all.push_back({"texture of another unit",
                   []
                   {
                       unsigned texture = 0;
                       glGenTextures(1, &texture);
                       glBindTexture(GL_TEXTURE_2D, texture);
                       glActiveTexture(GL_TEXTURE3);
                   },
                   []
                   {
                       const double unit = integer(GL_ACTIVE_TEXTURE);
                       glActiveTexture(GL_TEXTURE0);
                       const double bound = integer(GL_TEXTURE_BINDING_2D);
                       glActiveTexture(unsigned(unit));
                       return unit + 1e6 * bound;
                   }});
    all.push_back({"program",
                   []
                   {
                       const char* const text = "#version 330 core\nvoid main() { gl_Position = vec4(0); }";
                       const unsigned shader = glCreateShader(GL_VERTEX_SHADER), program = glCreateProgram();
                       glShaderSource(shader, 1, &text, nullptr);
                       glCompileShader(shader);
                       glAttachShader(program, shader);
                       glLinkProgram(program);
                       glUseProgram(program);
                   },
                   [] { return integer(GL_CURRENT_PROGRAM); }});
    return all;
}

// The application's own context and framebuffer, and the library in them.
struct Host
{
    Host()
    {
        std::string error;
        context = dgGLContext::create_off_screen(error);
        device =
            dgGLDevice::create(dgGLContext::adopt([this] { return alive && context->make_current(); }, error), error);
        glGenFramebuffers(1, &framebuffer);
        glGenRenderbuffers(1, &colour);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
        glBindRenderbuffer(GL_RENDERBUFFER, colour);
        glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, 64, 48);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, colour);
    }

    // The library's picture and the host's.
    std::vector<unsigned char> frame()
    {
        dgImage picture;
        dgGLHostArea area(device, 64, 48);
        dgRenderer renderer(area.main_window(), area.overlay_window());
        dgView view(&renderer);
        view.camera().view_port_dc(renderer.window_box());
        view.camera().view_window(giBox2(-32, -24, 32, 24));
        view.camera().front_back_plane(10, -10);
        renderer.background_colour(gsColour(0, 0, 1));
        const dgRef<dgTriangleBlock> block(triangles({{-20, -20, 0}, {20, -20, 5}, {0, 20, -5}}));
        renderer.erase(0);
        view.begin();
        view.execute(*block);
        view.execute(*dgRef<dgOpacity>(new dgOpacity(0.5)));
        view.execute(*dgRef<dgTriangleBlock>(triangles({{-30, -10, 9}, {30, -10, 9}, {0, 10, 9}})));
        view.end();
        for (const int anew : {1, 0})
            EXPECT_EQ(renderer.add_to_sums(renderer.window_box(), anew), 1);
        renderer.put_mean(renderer.window_box(), 2);
        renderer.swap_buffers(dgSWAP_PLAIN);
        EXPECT_EQ(area.wants_paint(), 1);
        area.paint(framebuffer);
        EXPECT_EQ(area.wants_paint(), 0);
        area.read(picture);
        return picture.rgba;
    }

    // What lies in the host's framebuffer; puts the state back to that of a new context.
    std::vector<unsigned char> shown()
    {
        const dgGLDevice::Use use(*device);
        std::vector<unsigned char> rgba(64 * 48 * 4);
        glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
        glReadPixels(0, 0, 64, 48, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
        return rgba;
    }

    int alive = 1;
    std::unique_ptr<dgGLContext> context;
    std::shared_ptr<dgGLDevice> device;
    unsigned framebuffer = 0;
    unsigned colour = 0;
};
}

TEST(dgGLSharedContext, neither_side_notices_the_other)
{
    Host clean;
    const std::vector<unsigned char> expected = clean.frame();
    ASSERT_EQ(clean.shown(), expected);
    ASSERT_NE(expected, std::vector<unsigned char>(expected.size(), expected[0]));
    for (const State& state : states())
    {
        Host host;
        ASSERT_TRUE(host.device);
        const double before = state.ask();
        state.set();
        const double left = state.ask();
        EXPECT_NE(left, before) << state.name;
        EXPECT_EQ(host.frame(), expected) << state.name;
        EXPECT_EQ(state.ask(), left) << state.name;
        EXPECT_EQ(host.shown(), expected) << state.name;
        EXPECT_TRUE(host.device->no_errors()) << state.name;
    }
}

TEST(dgGLHostArea, paints_into_what_is_bound_and_is_idle_as_it_is_told)
{
    Host host;
    dgGLHostArea area(host.device, 64, 48);
    dgRenderer renderer(area.main_window(), nullptr);
    renderer.background_colour(gsColour(0, 1, 1));
    renderer.erase(0);
    renderer.swap_buffers(dgSWAP_PLAIN);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, host.framebuffer);
    area.paint();
    EXPECT_EQ(area.wants_paint(), 0);
    std::vector<unsigned char> cyan;
    for (int i = 0; i < 64 * 48; ++i)
        cyan.insert(cyan.end(), {0, 255, 255, 255});
    EXPECT_EQ(host.shown(), cyan);
    EXPECT_EQ(area.idle(), 0) << "nothing is to be done";
    int left = 2, resized = 0;
    area.idle_callback([&] { return --left > 0; });
    EXPECT_EQ(area.idle(), 1);
    EXPECT_EQ(area.idle(), 0);
    area.resize_callback([&] { ++resized; });
    area.resize(1, 48);
    area.resize(1, 20);
    EXPECT_EQ(renderer.window_box(), giBox2(0, 0, 0, 19));
    area.resize(20, 1);
    area.resize(20, 1);
    area.resize(10, 0);
    area.resize(0, 10);
    EXPECT_EQ(area.width(), 0) << "minimised";
    EXPECT_EQ(renderer.window_box(), giBox2(0, 0, 19, 0));
    EXPECT_EQ(resized, 3);
}

TEST(dgGLSharedContext, leaves_no_objects_behind)
{
    Host host;
    host.frame();
    host.device.reset();
    int left = 0;
    for (unsigned name = 1; name < 1000; ++name)
        for (const auto exists : {glIsBuffer, glIsFramebuffer, glIsProgram, glIsQuery, glIsRenderbuffer, glIsSampler,
                                  glIsShader, glIsTexture, glIsVertexArray})
            left += exists(name);
    EXPECT_EQ(left, 2) << "the host's framebuffer and its colours alone";
}

TEST(dgGLSharedContext, may_end_before_the_device)
{
    Host host;
    dgGLWindow window(host.device, 8, 8);
    dgRenderer renderer(&window, window.overlay());
    dgView view(&renderer);
    host.alive = 0;
    host.context.reset();
    view.erase(dgERASE_ZBUFFER_YES);
    view.begin();
    view.execute(*dgRef<dgPolyline>(new dgPolyline({{0, 0, 0}, {4, 4, 0}})));
    view.end();
    dgImage picture;
    window.read_front(picture);
    EXPECT_EQ(picture.rgba, std::vector<unsigned char>(8 * 8 * 4));
    EXPECT_TRUE(host.device->lost());
    window.resize(20, 20);
    EXPECT_EQ(window.width(), 1);
}
