#include "dgGLWindow.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLDriver.h"
#include "dgGLPixels.h"
#include "dgGLPrograms.h"
#include "dgGLSums.h"
#include "dgImage.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace
{
int at_least_1(int size)
{
    return std::max(size, 1);
}

// Colour is a texture, so that contexts of the window system that share objects can show it.
unsigned make_colour_texture(int width, int height)
{
    unsigned texture = 0;
    glGenTextures(1, &texture);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, width, height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glBindTexture(GL_TEXTURE_2D, 0);
    return texture;
}

unsigned make_depth_stencil(int width, int height)
{
    unsigned renderbuffer = 0;
    glGenRenderbuffers(1, &renderbuffer);
    glBindRenderbuffer(GL_RENDERBUFFER, renderbuffer);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, width, height);
    return renderbuffer;
}

unsigned make_framebuffer(unsigned texture, unsigned depth_stencil)
{
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depth_stencil);
    return framebuffer;
}

bool fits_driver(int width, int height)
{
    int texture = 0, renderbuffer = 0, viewport[2] = {};
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &texture);
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbuffer);
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, viewport);
    return width <= std::min({texture, renderbuffer, viewport[0]}) &&
           height <= std::min({texture, renderbuffer, viewport[1]});
}

// There is a handful of error flags; a context that is lost reports one for ever.
void discard_errors()
{
    for (int flag = 0; flag < 16 && glGetError() != GL_NO_ERROR; ++flag)
        continue;
}

// The pixels of a device box that a window has.
struct Corners
{
    Corners(const giBox2& box, int width, int height)
    {
        const dgGLPixels all = dg_gl_pixels(box);
        low_x = std::max(all.x, 0);
        low_y = std::max(all.y, 0);
        end_x = std::min(all.x + all.width, width);
        end_y = std::min(all.y + all.height, height);
    }
    bool empty() const { return end_x <= low_x || end_y <= low_y; }

    // Copies them between the framebuffers that are bound.
    void blit() const
    {
        glDisable(GL_SCISSOR_TEST);
        glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
        glBlitFramebuffer(low_x, low_y, end_x, end_y, low_x, low_y, end_x, end_y, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    }
    dgGLPixels pixels() const { return {low_x, low_y, end_x - low_x, end_y - low_y}; }
    int low_x, low_y, end_x, end_y;
};

// Clears planes of the framebuffer that is bound; false when it cannot be drawn to.
bool cleared(float alpha, unsigned planes)
{
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE)
        return false;
    glDisable(GL_SCISSOR_TEST);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glStencilMask(~0u);
    glClearColor(0, 0, 0, alpha);
    glClear(planes);
    return true;
}

constexpr unsigned all_planes = GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT;
}

struct dgGLWindow::Buffers
{
    // A colour texture and the framebuffer that draws into it.
    struct Colour
    {
        unsigned texture = 0;
        unsigned framebuffer = 0;
    };
    Colour front, back, overlay;
    unsigned depth_stencil = 0;
    unsigned overlay_depth_stencil = 0;

    // These return whether what they made can be drawn to.
    bool make_main(int width, int height)
    {
        depth_stencil = make_depth_stencil(width, height);
        bool complete = true;
        for (Colour* colour : {&front, &back})
        {
            colour->texture = make_colour_texture(width, height);
            colour->framebuffer = make_framebuffer(colour->texture, depth_stencil);
            // They share the depth and stencil planes: in large surfaces every pass over one counts.
            complete = complete && cleared(1, colour == &front ? all_planes : GL_COLOR_BUFFER_BIT);
        }
        return complete;
    }
    bool make_overlay(int width, int height)
    {
        overlay_depth_stencil = make_depth_stencil(width, height);
        overlay.texture = make_colour_texture(width, height);
        overlay.framebuffer = make_framebuffer(overlay.texture, overlay_depth_stencil);
        return cleared(0, all_planes);
    }
    void free()
    {
        for (Colour* colour : {&front, &back, &overlay})
        {
            glDeleteFramebuffers(1, &colour->framebuffer);
            glDeleteTextures(1, &colour->texture);
            *colour = Colour();
        }
        glDeleteRenderbuffers(1, &depth_stencil);
        glDeleteRenderbuffers(1, &overlay_depth_stencil);
        depth_stencil = overlay_depth_stencil = 0;
    }
};

// The overlay as a surface of its own.
class dgGLWindow::Overlay : public dgWindow
{
public:
    explicit Overlay(dgGLWindow& under) : the_under(under) {}

    void begin() override
    {
        the_under.device().begin_use();
        the_under.bind_layer(1);
        the_under.device().modes_owner(nullptr);
    }
    void end() override { the_under.device().end_use(); }
    int width() const override { return the_under.width(); }
    int height() const override { return the_under.height(); }
    std::unique_ptr<dgDriver> make_driver(int inverting) override
    {
        return std::make_unique<dgGLDriver>(the_under, 1, inverting);
    }
    void present() override { the_under.present(); }

private:
    dgGLWindow& the_under;
};

dgGLWindow::dgGLWindow(std::shared_ptr<dgGLDevice> device, int width, int height)
    : the_device(std::move(device)), the_buffers(std::make_unique<Buffers>()), the_width(1), the_height(1)
{
    make_buffers(at_least_1(width), at_least_1(height));
}

dgGLWindow::~dgGLWindow()
{
    const dgGLDevice::Use use(*the_device);
    the_device->modes_owner(nullptr);
    if (!use)
        return;
    the_buffers->free();
    if (the_sums)
        the_sums->free();
}

void dgGLWindow::begin()
{
    the_device->begin_use();
    bind_layer(0);
    the_device->modes_owner(nullptr);
}

void dgGLWindow::end()
{
    the_device->end_use();
}

void dgGLWindow::resize(int width, int height)
{
    make_buffers(at_least_1(width), at_least_1(height));
    the_overlay_used = 0;
    the_front_changed = 1;
}

// Buffers of that size, or of 1 x 1.
void dgGLWindow::make_buffers(int width, int height)
{
    the_width = the_height = 1;
    const dgGLDevice::Use use(*the_device);
    the_device->modes_owner(nullptr);
    if (!use)
        return;
    the_buffers->free();
    if (the_sums)
        the_sums->free();
    the_sums.reset();
    const auto made = [this](int wide, int high)
    {
        discard_errors();
        const bool complete = the_buffers->make_main(wide, high) && glGetError() == GL_NO_ERROR;
        the_width = complete ? wide : 1;
        the_height = complete ? high : 1;
        return complete;
    };
    if (fits_driver(width, height) && made(width, height))
        return;
    the_buffers->free();
    made(1, 1);
    discard_errors();
}

std::unique_ptr<dgDriver> dgGLWindow::make_driver(int inverting)
{
    return std::make_unique<dgGLDriver>(*this, 0, inverting);
}

dgWindow* dgGLWindow::overlay()
{
    if (!the_overlay)
        the_overlay = std::make_unique<Overlay>(*this);
    return the_overlay.get();
}

bool dgGLWindow::overlay_made() const
{
    return the_buffers->overlay.framebuffer != 0;
}

void dgGLWindow::make_overlay()
{
    the_buffers->make_overlay(the_width, the_height);
    the_device->modes_owner(nullptr);
}

void dgGLWindow::select_buffer(dgDoubleBuffer buffer)
{
    if (buffer != the_selected)
        the_device->modes_owner(nullptr); // whoever draws next binds the other one
    the_selected = buffer;
}

void dgGLWindow::swap()
{
    std::swap(the_buffers->front, the_buffers->back);
    the_device->modes_owner(nullptr);
    the_front_changed = 1;
}

void dgGLWindow::show_back(const giBox2& box)
{
    const Corners corners(box, the_width, the_height);
    const dgGLDevice::Use use(*the_device);
    if (corners.empty() || !use)
        return;
    the_device->modes_owner(nullptr);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, the_buffers->back.framebuffer);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, the_buffers->front.framebuffer);
    corners.blit();
    the_front_changed = 1;
}

unsigned dgGLWindow::selected_texture() const
{
    return (the_selected == dgFRONT_BUFFER ? the_buffers->front : the_buffers->back).texture;
}

int dgGLWindow::add_to_sums(const giBox2& box, int anew)
{
    const dgGLDevice::Use use(*the_device);
    if (!use)
        return 0;
    the_device->modes_owner(nullptr);
    if (!the_sums)
        the_sums = std::make_unique<dgGLSums>();
    if (!the_sums->made() && !(anew && the_sums->make(the_width, the_height)))
        return 0;
    const Corners corners(box, the_width, the_height);
    if (!corners.empty())
        the_sums->add(the_device->programs(), selected_texture(), corners.pixels(), anew);
    return 1;
}

void dgGLWindow::put_mean(const giBox2& box, int pictures)
{
    const Corners corners(box, the_width, the_height);
    const dgGLDevice::Use use(*the_device);
    if (!use || !the_sums || !the_sums->made() || corners.empty())
        return;
    the_device->modes_owner(nullptr);
    bind_layer(0);
    the_sums->put_mean(the_device->programs(), corners.pixels(), pictures);
    layer_drawn(0);
}

void dgGLWindow::blit_front_to(unsigned draw_framebuffer, const giBox2& box)
{
    const Corners corners(box, the_width, the_height);
    the_front_changed = 0;
    the_device->modes_owner(nullptr);
    if (corners.empty())
        return;
    std::optional<dgGLDevice::Use> use;
    if (the_device->context().shared())
        use.emplace(*the_device);
    if (the_device->lost())
        return;

    // Framebuffers and vertex arrays are not shared between contexts, textures are: those made here serve any context.
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, the_buffers->front.texture, 0);
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, draw_framebuffer);
    corners.blit();
    glDeleteFramebuffers(1, &framebuffer);
    if (!the_overlay_used)
        return;

    unsigned vertex_array = 0;
    glGenVertexArrays(1, &vertex_array);
    glBindVertexArray(vertex_array);
    for (const unsigned capability : {GL_DEPTH_TEST, GL_STENCIL_TEST, GL_COLOR_LOGIC_OP, GL_BLEND})
        glDisable(capability);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    the_device->programs().draw_keyed(the_buffers->overlay.texture, corners.pixels());
    glDeleteVertexArrays(1, &vertex_array);
}

void dgGLWindow::read_front(dgImage& image)
{
    const dgGLDevice::Use use(*the_device);
    the_device->modes_owner(nullptr);
    image.width = the_width;
    image.height = the_height;
    image.rgba.assign(std::size_t(4) * static_cast<std::size_t>(the_width) * static_cast<std::size_t>(the_height), 0);
    if (!use)
        return;
    const int changed = the_front_changed;
    const unsigned texture = make_colour_texture(the_width, the_height);
    unsigned framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glFramebufferTexture2D(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_TEXTURE_2D, texture, 0);
    blit_front_to(framebuffer, device_box());
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glReadPixels(0, 0, the_width, the_height, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
    glDeleteFramebuffers(1, &framebuffer);
    glDeleteTextures(1, &texture);
    the_front_changed = changed;
}

void dgGLWindow::bind_layer(int overlay)
{
    if (the_device->lost())
        return;
    const Buffers::Colour& colour = overlay                          ? the_buffers->overlay
                                    : the_selected == dgFRONT_BUFFER ? the_buffers->front
                                                                     : the_buffers->back;
    glBindFramebuffer(GL_FRAMEBUFFER, colour.framebuffer);
}

void dgGLWindow::layer_drawn(int overlay)
{
    if (overlay)
        the_overlay_used = 1;
    if (overlay || the_selected == dgFRONT_BUFFER)
        the_front_changed = 1;
}

void dgGLWindow::overlay_cleared(const giBox2& box)
{
    the_front_changed = 1;
    if (box.low().x() <= 0 && box.low().y() <= 0 && box.high().x() >= the_width - 1 && box.high().y() >= the_height - 1)
        the_overlay_used = 0;
}
