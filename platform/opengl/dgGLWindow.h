#pragma once

#include "dgEnums.h"
#include "dgWidgetWindow.h"
#include "dg_openglExport.h"

#include <memory>

class dgGLDevice;
class dgGLSums;
struct dgImage;

/// A surface in framebuffer objects: a front and a back colour buffer that share one depth and stencil buffer, and an
/// overlay layer with buffers of its own.
///
/// Alone it is an off-screen picture. A window back end derives from it and shows the front buffer in present. Rows lie
/// from the bottom up, as OpenGL has them, so that no copy needs turning over.
class DG_OPENGL_EXPORT dgGLWindow : public dgWidgetWindow
{
public:
    /// Sizes are pixels; below 1 they count as 1. When the driver cannot make surfaces of that size (its limits are
    /// often 16384, and memory may end before), the window is 1 x 1: compare width and height with what was wanted.
    dgGLWindow(std::shared_ptr<dgGLDevice> device, int width, int height);
    ~dgGLWindow() override;
    dgGLWindow(const dgGLWindow&) = delete;
    dgGLWindow& operator=(const dgGLWindow&) = delete;

    dgGLDevice& device() const { return *the_device; }

    /// Makes the context current and the selected buffer the one that is drawn into.
    void begin() override;
    void end() override;

    int width() const override { return the_width; }
    int height() const override { return the_height; }

    /// Both layers become black and empty. A size that the driver cannot make leaves a window of 1 x 1.
    void resize(int width, int height) override;

    std::unique_ptr<dgDriver> make_driver(int inverting) override;

    /// The layer over this window, of the same size and owned by it. Pixels that nothing was drawn on are transparent.
    /// It takes memory from when it is first drawn on.
    dgWindow* overlay();

    /// The colour buffer that drawing and reading use; the back one at first. All drivers of the window share it.
    void select_buffer(dgDoubleBuffer buffer);
    dgDoubleBuffer selected_buffer() const { return the_selected; }

    /// Exchanges front and back.
    void swap();

    /// Copies a device box of the back buffer to the front one.
    void show_back(const giBox2& box);

    /// See dgDriver: sums of the pictures in the selected buffer.
    int add_to_sums(const giBox2& box, int anew);
    void put_mean(const giBox2& box, int pictures);

    /// 1 when what is to be seen has changed since the last blit_front_to: a swap, drawing on the front buffer or on
    /// the overlay. Window back ends present then, when no event waits.
    int front_changed() const { return the_front_changed; }

    /// Copies a device box of the front buffer, and the overlay over it, to the same pixels of a framebuffer (0 is that
    /// of the window system). A context that shares objects with the device's may be current; its state is left as the
    /// copy needs it. Where the device's own is the application's, that is current and keeps its state.
    void blit_front_to(unsigned draw_framebuffer, const giBox2& box);

    /// Reads the picture as it is to be seen: the front buffer with the overlay over it.
    void read_front(dgImage& image);

    // For the drivers of the window and of its overlay.
    bool overlay_made() const;
    void make_overlay();
    void bind_layer(int overlay);
    void layer_drawn(int overlay);
    void overlay_cleared(const giBox2& box);

private:
    class Overlay;
    struct Buffers;

    void make_buffers(int width, int height);
    unsigned selected_texture() const;

    std::shared_ptr<dgGLDevice> the_device;
    std::unique_ptr<Buffers> the_buffers;
    std::unique_ptr<Overlay> the_overlay;
    std::unique_ptr<dgGLSums> the_sums; // null until pictures are added
    dgDoubleBuffer the_selected = dgBACK_BUFFER;
    int the_width;
    int the_height;
    int the_front_changed = 1;
    int the_overlay_used = 0; // something may be seen on it
};
