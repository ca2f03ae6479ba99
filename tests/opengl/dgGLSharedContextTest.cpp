#include "renderScene.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
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

std::vector<State> states()
{
    std::vector<State> all;
    const std::pair<unsigned, const char*> capabilities[] = {{GL_BLEND, "blend"},
                                                             {GL_COLOR_LOGIC_OP, "logic op"},
                                                             {GL_CULL_FACE, "cull face"},
                                                             {GL_DEPTH_TEST, "depth test"},
                                                             {GL_DITHER, "dither"},
                                                             {GL_FRAMEBUFFER_SRGB, "sRGB"},
                                                             {GL_POLYGON_OFFSET_FILL, "polygon offset"},
                                                             {GL_PRIMITIVE_RESTART, "restart"},
                                                             {GL_RASTERIZER_DISCARD, "discard"},
                                                             {GL_SAMPLE_MASK, "sample mask"},
                                                             {GL_SCISSOR_TEST, "scissor test"},
                                                             {GL_STENCIL_TEST, "stencil test"},
                                                             {GL_CLIP_DISTANCE0, "clip distance"},
                                                             {GL_PROGRAM_POINT_SIZE, "point size"}};
    for (const auto& [capability, name] : capabilities)
        all.push_back({name,
                       [capability = capability]
                       {
                           if (glIsEnabled(capability))
                               glDisable(capability);
                           else
                               glEnable(capability);
                       },
                       [capability = capability] { return glIsEnabled(capability); }});
    for (const unsigned storage :
         {GL_PACK_SKIP_PIXELS, GL_PACK_SKIP_ROWS, GL_PACK_ROW_LENGTH, GL_PACK_SWAP_BYTES, GL_UNPACK_ROW_LENGTH})
        all.push_back({"pixel storage " + std::to_string(storage), [storage] { glPixelStorei(storage, 1); },
                       [storage] { return integer(storage); }});
    static unsigned vertex_array, buffer, texture, program;
    const auto add = [&](const char* name, std::function<void()> set, std::function<double()> ask) {
        all.push_back({name, std::move(set), std::move(ask)});
    };
    add(
        "clear depth", [] { glClearDepth(0); }, [] { return real(GL_DEPTH_CLEAR_VALUE); });
    add(
        "clear stencil", [] { glClearStencil(7); }, [] { return integer(GL_STENCIL_CLEAR_VALUE); });
    add(
        "clear colour", [] { glClearColor(0.5f, 0.25f, 0, 0); }, [] { return real(GL_COLOR_CLEAR_VALUE); });
    add(
        "depth range", [] { glDepthRange(1, 0.25); }, [] { return real(GL_DEPTH_RANGE); });
    add(
        "depth function", [] { glDepthFunc(GL_NEVER); }, [] { return integer(GL_DEPTH_FUNC); });
    add(
        "depth mask", [] { glDepthMask(GL_FALSE); }, [] { return integer(GL_DEPTH_WRITEMASK); });
    add(
        "colour mask", [] { glColorMask(0, 1, 0, 1); }, [] { return integer(GL_COLOR_WRITEMASK); });
    add(
        "stencil mask", [] { glStencilMask(1); }, [] { return integer(GL_STENCIL_WRITEMASK); });
    add(
        "stencil back", [] { glStencilFuncSeparate(GL_BACK, GL_NEVER, 3, 1); },
        [] { return integer(GL_STENCIL_BACK_FUNC) + integer(GL_STENCIL_BACK_REF); });
    add(
        "front face", [] { glFrontFace(GL_CW); }, [] { return integer(GL_FRONT_FACE); });
    add(
        "polygon mode", [] { glPolygonMode(GL_FRONT_AND_BACK, GL_POINT); }, [] { return integer(GL_POLYGON_MODE); });
    add(
        "provoking vertex", [] { glProvokingVertex(GL_FIRST_VERTEX_CONVENTION); },
        [] { return integer(GL_PROVOKING_VERTEX); });
    add(
        "viewport", [] { glViewport(3, 4, 5, 6); }, [] { return integer(GL_VIEWPORT); });
    add(
        "scissor box", [] { glScissor(3, 4, 5, 6); }, [] { return integer(GL_SCISSOR_BOX); });
    add(
        "clip control", [] { glClipControl(GL_UPPER_LEFT, GL_ZERO_TO_ONE); }, [] { return integer(GL_CLIP_ORIGIN); });
    add(
        "pack buffer",
        []
        {
            glGenBuffers(1, &buffer);
            glBindBuffer(GL_PIXEL_PACK_BUFFER, buffer);
        },
        [] { return integer(GL_PIXEL_PACK_BUFFER_BINDING); });
    add(
        "vertex array",
        []
        {
            glGenVertexArrays(1, &vertex_array);
            glBindVertexArray(vertex_array);
            glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffer);
        },
        [] { return integer(GL_VERTEX_ARRAY_BINDING) + 1e3 * integer(GL_ELEMENT_ARRAY_BUFFER_BINDING); });
    add(
        "texture of another unit",
        []
        {
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
        });
    add(
        "program",
        []
        {
            const char* const text = "#version 330 core\nvoid main() { gl_Position = vec4(0); }";
            const unsigned shader = glCreateShader(GL_VERTEX_SHADER);
            glShaderSource(shader, 1, &text, nullptr);
            glCompileShader(shader);
            program = glCreateProgram();
            glAttachShader(program, shader);
            glLinkProgram(program);
            glUseProgram(program);
        },
        [] { return integer(GL_CURRENT_PROGRAM); });
    return all;
}

// The application's own context and framebuffer, and the library in them.
struct Host
{
    Host()
    {
        std::string error;
        context = dgGLContext::create_off_screen(error);
        device = dgGLDevice::create(dgGLContext::adopt([this] { return alive; }, error), error);
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
        dgGLWindow window(device, 64, 48);
        dgRenderer renderer(&window, window.overlay());
        dgView view(&renderer);
        view.camera().view_port_dc(window.device_box());
        view.camera().window_size(giVector2(64, 48));
        renderer.background_colour(gsColour(0, 0, 1));
        const dgRef<dgTriangleBlock> block(triangles({{-20, -20, 0}, {20, -20, 5}, {0, 20, -5}}));
        view.erase(dgERASE_ZBUFFER_YES);
        view.begin();
        view.execute(*block);
        view.end();
        renderer.swap_buffers(dgSWAP_PLAIN);
        window.read_front(picture);
        window.blit_front_to(framebuffer, window.device_box());
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
        if (state.name == "clip control" && epoxy_gl_version() < 45)
            continue;
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
