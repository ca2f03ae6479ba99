#pragma once

#include "dgDriver.h"

#include <string>

class dgTraceWindow;

/// The driver of a dgTraceWindow: writes what it is asked for to the window's log.
class dgTraceDriver : public dgDriver
{
public:
    dgTraceDriver(dgTraceWindow& window, int inverting);

    dgDriverKind type() const override;
    int capability(int, dgDriverCapability capability) const override;

    void begin() override;
    void end() override;
    void select_buffer(dgDoubleBuffer buffer) override;
    void swap_buffers(dgDoubleBufferSwap mode) override;
    void clip(const giBox2& device_box) override;
    void clear(const giBox2& device_box, const dgBackground& background, dgEraseFramebuffer colour,
               dgEraseZbuffer depth) override;
    void set_camera(const dgCameraState& camera) override;
    void set_model_transform(const giXform3& model_to_world) override;
    void set_state(const dgDrawState& state) override;
    void draw_run(const dgPrimitiveRun& run) override;
    void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans) override;
    void draw_primitive(const dgGraphicalPrimitive& primitive) override;
    void draw_segments(const giPoint3*, int npoints) override;
    void read_pixels(const giBox2& device_box, dgImage& image) override;
    void finish() override;
    void show_back_buffer(const giBox2& device_box) override;
    int add_to_sums(const giBox2& device_box, int anew) override;
    void put_mean(const giBox2& device_box, int pictures) override;

    // What only OpenGL drivers do is seen only on a surface that reports to be one.
    int cuts_at_planes() const override { return !the_depth_clamped; }
    void gl_enable(unsigned capability) override;
    void gl_disable(unsigned capability) override;
    void gl_stencil_func(unsigned function, int reference, unsigned mask) override;
    void gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes) override;
    void erase_area(const giBox2& device_box, const gsColour&, dgEraseFramebuffer framebuffer,
                    dgEraseZbuffer zbuffer) override;

private:
    void record(const std::string& line);
    void record_gl(const std::string& line);
    void drawn(const std::string& line, int features);

    dgTraceWindow& the_window;
    std::string the_prefix;
    bool the_depth_clamped = false;
};
