#pragma once

#include "dgEnums.h"
#include "dgExport.h"

#include <vector>

struct dgBackground;
struct dgCameraState;
struct dgDrawState;
struct dgImage;
struct dgFeatureClusters;
struct dgFeatureSpan;
struct dgPrimitiveRun;
class dgGraphicalPrimitive;
class dgText;
class dgWindow;
class giBox2;
class giBox3;
class giPoint2;
class giPoint3;
class giTriangle;
class giXform3;
class gsColour;

/// The seam between the display library and a graphics interface. A renderer drives it; applications do not.
///
/// Drawing calls come between begin and end. State stays in force until it is set again. Drawing is asynchronous:
/// finish waits for it.
class DG_EXPORT dgDriver
{
public:
    virtual ~dgDriver();

    virtual dgDriverKind type() const = 0;

    /// 1 when a mode, or any for -1, has the capability.
    virtual int capability(int mode, dgDriverCapability capability) const = 0;

    virtual void begin() = 0;
    virtual void end() = 0;
    virtual void select_buffer(dgDoubleBuffer buffer) = 0;
    virtual void swap_buffers(dgDoubleBufferSwap mode) = 0;

    /// Confines clearing and drawing to a device box, low and high pixels included; an empty box lifts it.
    virtual void clip(const giBox2& device_box) = 0;

    /// Fills a device box, low and high pixels included, of the selected buffer.
    virtual void clear(const giBox2& device_box, const dgBackground& background, dgEraseFramebuffer colour,
                       dgEraseZbuffer depth) = 0;

    virtual void set_camera(const dgCameraState& camera) = 0;
    virtual void set_model_transform(const giXform3& model_to_world) = 0;
    virtual void set_state(const dgDrawState& state) = 0;

    /// Draws a run of primitives, whose geometry the driver keeps from one drawing to the next.
    virtual void draw_run(const dgPrimitiveRun& run) = 0;

    /// Makes what is kept of a run ahead of its first drawing. Does nothing where nothing is kept.
    virtual void prepare_run(const dgPrimitiveRun& run);

    /// Draws some features of a run. The spans follow on each other without overlapping.
    virtual void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans) = 0;

    /// Draws one primitive, whose geometry the driver keeps too.
    virtual void draw_primitive(const dgGraphicalPrimitive& primitive) = 0;

    /// Draws line segments between successive pairs of points, which are not kept.
    virtual void draw_segments(const giPoint3* points, int npoints) = 0;

    /// Reads the selected buffer inside a device box, low and high pixels included.
    virtual void read_pixels(const giBox2& device_box, dgImage& image) = 0;

    virtual void finish() = 0;

    /// Waits for what came before the last call of this, or for more.
    virtual void finish_all_but_last() { finish(); }

    /// Where the features of a large primitive lie, for a driver that draws parts of it as fast as the whole; good
    /// until the primitive changes. Null for any other.
    virtual const dgFeatureClusters* clusters(const dgGraphicalPrimitive& primitive);

    /// 1 while what lies beyond the clipping planes is cut off; 0 when it is drawn as if it lay on them.
    virtual int cuts_at_planes() const = 0;

    /// Switch an OpenGL capability by its number; 0x0B90 is the stencil test. Drivers of other types do nothing in
    /// these and the following calls.
    virtual void gl_enable(unsigned capability) = 0;
    virtual void gl_disable(unsigned capability) = 0;

    /// As glStencilFunc and glStencilOp. They stay in force for this driver.
    virtual void gl_stencil_func(unsigned function, int reference, unsigned mask) = 0;
    virtual void gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes) = 0;

    /// Fills a device box, low and high pixels included. With neither option the stencil buffer is cleared inside the
    /// box and nothing else.
    virtual void erase_area(const giBox2& device_box, const gsColour& colour, dgEraseFramebuffer framebuffer,
                            dgEraseZbuffer zbuffer) = 0;

    /// Draws a run as a picture of the whole of it, with count triangles for all of its features, or nearly as many: by
    /// simplified levels of its heavy blocks. Only the spans of features in seen need to be drawn. Answers how many
    /// triangles were used up; 0, with nothing drawn, where the driver has no such levels.
    virtual int draw_simplified(const dgPrimitiveRun& run, int count, const std::vector<dgFeatureSpan>& seen);

    /// 1 when draw_simplified draws some runs.
    virtual int simplifies() const;

    /// Copies a device box, low and high pixels included, of the back buffer's colours to the front one.
    virtual void show_back_buffer(const giBox2& device_box) = 0;

    /// Adds the colours of the selected buffer inside a device box, low and high pixels included, to the sums that are
    /// kept for its pixels; anew has the sums start with them. Sums have room for 256 pictures, and are forgotten when
    /// the window gets another size. 0 when there can be none.
    virtual int add_to_sums(const giBox2& device_box, int anew) = 0;

    /// Puts the means of so many pictures in their place.
    virtual void put_mean(const giBox2& device_box, int pictures) = 0;

    /// Box of what a text is drawn as under the state in force, in its own coordinates. Empty where that is not known.
    virtual giBox3 text_box(const dgText& text);

    /// Draws a run of triangles of which spans of features are seen, with simplified levels of its heavy blocks that
    /// are off by no more than so many pixels. 0, with nothing drawn, when none is.
    virtual int draw_coarsened(const dgPrimitiveRun& run, double pixels, const std::vector<dgFeatureSpan>& seen);

    /// Covers what closed contours wind about at least once with triangles between points, counter-clockwise: those of
    /// the contours in order, and behind them others where contours cross. 0 where the driver cannot, or fails.
    virtual int fill_contours(const std::vector<std::vector<giPoint2>>& contours, std::vector<giPoint2>& points,
                              std::vector<giTriangle>& triangles);
};
