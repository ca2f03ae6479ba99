#pragma once

#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgGLIndexRanges.h"
#include "dgGLTransforms.h"
#include "dgGeometry.h"
#include "dg_openglExport.h"

#include <vector>

class dgGLDevice;
class dgGLWindow;
class dgText;
class giBox3;

/// The driver that draws with OpenGL.
class DG_OPENGL_EXPORT dgGLDriver : public dgDriver
{
public:
    /// Draws on a window, or with overlay 1 on its overlay. The window must outlive the driver. With inverting 1 the
    /// colour of every pixel that is drawn is combined with the one there by exclusive or; alpha and depth stay.
    dgGLDriver(dgGLWindow& window, int overlay, int inverting);
    ~dgGLDriver() override;

    dgDriverKind type() const override { return dgDRIVER_OPENGL; }
    int capability(int mode, dgDriverCapability capability) const override;

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
    void prepare_run(const dgPrimitiveRun& run) override;
    void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans) override;
    int draw_simplified(const dgPrimitiveRun& run, int count, const std::vector<dgFeatureSpan>& seen) override;
    int simplifies() const override;
    int draw_coarsened(const dgPrimitiveRun& run, double pixels, const std::vector<dgFeatureSpan>& seen) override;
    void show_back_buffer(const giBox2& device_box) override;
    int add_to_sums(const giBox2& device_box, int anew) override;
    void put_mean(const giBox2& device_box, int pictures) override;
    giBox3 text_box(const dgText& text) override;
    int fill_contours(const std::vector<std::vector<giPoint2>>& contours, std::vector<giPoint2>& points,
                      std::vector<giTriangle>& triangles) override;
    void draw_primitive(const dgGraphicalPrimitive& primitive) override;
    void draw_segments(const giPoint3* points, int npoints) override;
    void read_pixels(const giBox2& device_box, dgImage& image) override;
    void finish() override;
    void finish_all_but_last() override;
    const dgFeatureClusters* clusters(const dgGraphicalPrimitive& primitive) override;
    int cuts_at_planes() const override { return !the_depth_clamped; }
    void gl_enable(unsigned capability) override;
    void gl_disable(unsigned capability) override;
    void gl_stencil_func(unsigned function, int reference, unsigned mask) override;
    void gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes) override;
    void erase_area(const giBox2& device_box, const gsColour& colour, dgEraseFramebuffer framebuffer,
                    dgEraseZbuffer zbuffer) override;

private:
    void own_modes();
    void need_layer();
    void set_scissor(const giBox2& device_box) const;
    void clear_box(const giBox2& device_box, unsigned planes, const float (&rgba)[4]);
    void prepare(dgTopology topology, int has_normals, const giPoint3& origin, bool few, int curved);
    const float* colour_of(dgTopology topology) const;
    bool colours_change(const float* colour);
    void draw_ranges(dgTopology topology, int has_normals, const dgGLIndexRanges& ranges);
    void draw_see_through(int has_normals, const dgGLIndexRanges& ranges);
    void draw_once(dgTopology topology, int has_normals, const dgGLIndexRanges& ranges);
    void flush();
    void draw_stored(const dgGraphicalPrimitive& primitive, dgTopology topology, int has_normals);
    void draw_texts(const dgPrimitiveRun& run, int first, int end);
    void draw_text(const dgText& text);
    template <class Draw>
    void with_text_look(Draw draw);
    double pixels_per_unit(const giBox3& box) const;

    dgGLWindow& the_window;
    dgGLDevice& the_device;
    int the_overlay;
    int the_inverting;
    int the_depth_clamped = 0;

    dgCameraState the_camera;
    giBox2 the_clip; // empty: none
    giXform3 the_model_to_world;
    dgDrawState the_state;
    dgBackground the_background; // what was last erased with

    // What follows from the transforms, made when next needed.
    int the_transforms_changed = 1;
    giPoint3 the_origin; // local, of the positions that are drawn
    dgGLTransforms the_transforms;

    // Raised whenever the values that a program takes have changed, so that each program takes them once.
    unsigned long long the_transform_stamp;
    unsigned long long the_state_stamp;

    struct Stencil
    {
        int on = 0;
        unsigned function = 0x0207; // always
        int reference = 0;
        unsigned mask = ~0u;
        unsigned operations[3] = {0x1E00, 0x1E00, 0x1E00}; // keep
    };
    Stencil the_stencil;

    // Primitives drawn one by one under one state, waiting to be drawn together.
    dgTopology the_pending_topology = dgTOPOLOGY_POINTS;
    int the_pending_normals = 0;
    dgGLIndexRanges the_pending;

    dgGLIndexRanges the_selected; // the features that were drawn last

    // Of the drawings of few features since begin.
    bool the_colours_change = false;
    bool the_last_colour_known = false;
    float the_last_colour[3];
};
