#include "dgTraceWindow.h"

#include "apClockOverride.h"
#include "dgCompiledStructure.h"
#include "dgDrawState.h"
#include "dgDriver.h"
#include "dgGraphicalPrimitive.h"
#include "dgImage.h"
#include "giBox2.h"
#include "giXform3.h"

#include <sstream>

namespace
{
// Numbers as short as they can be read back.
class Line
{
public:
    explicit Line(const std::string& start) { the_text << start; }
    template <class Value>
    Line& operator<<(const Value& value)
    {
        the_text << ' ' << value;
        return *this;
    }
    Line& operator<<(const giBox2& box)
    {
        return *this << box.low().x() << box.low().y() << box.high().x() << box.high().y();
    }
    template <int n>
    Line& operator<<(const float (&channels)[n])
    {
        for (float channel : channels)
            *this << channel;
        return *this;
    }
    std::string text() const { return the_text.str(); }

private:
    std::ostringstream the_text;
};

std::string hex(unsigned number)
{
    std::ostringstream text;
    text << "0x" << std::hex << number;
    return text.str();
}

const char* topology_name(dgTopology topology)
{
    switch (topology)
    {
    case dgTOPOLOGY_POINTS: return "points";
    case dgTOPOLOGY_LINES: return "lines";
    case dgTOPOLOGY_TRIANGLES: return "triangles";
    case dgTOPOLOGY_TEXT: return "text";
    }
    return "unknown";
}
}

class dgTraceDriver : public dgDriver
{
public:
    dgTraceDriver(dgTraceWindow& window, int inverting) : the_window(window), the_prefix(inverting ? "xor " : "") {}

    dgDriverKind type() const override { return the_window.driver_type(); }
    int capability(int, dgDriverCapability capability) const override { return the_window.capability(capability); }

    void begin() override { record(Line("begin")); }
    void end() override { record(Line("end")); }
    void select_buffer(dgDoubleBuffer buffer) override
    {
        record(Line("select_buffer") << (buffer == dgBACK_BUFFER ? "back" : "front"));
    }
    void swap_buffers(dgDoubleBufferSwap mode) override { record(Line("swap_buffers") << static_cast<int>(mode)); }
    void clip(const giBox2& device_box) override
    {
        if (device_box.empty())
            record(Line("clip off"));
        else
            record(Line("clip") << device_box);
    }
    void clear(const giBox2& device_box, const dgBackground& background, dgEraseFramebuffer colour,
               dgEraseZbuffer depth) override
    {
        Line line("clear");
        line << device_box << (colour ? "colour" : "keep_colour") << (depth ? "depth" : "keep_depth");
        if (the_window.record_state())
            line << background.bottom << background.top;
        record(line);
    }
    void set_camera(const dgCameraState& camera) override
    {
        if (the_window.record_state())
            record(Line("camera") << camera.view_port << camera.front << camera.back << camera.depth_test
                                  << camera.depth_cueing);
    }
    void set_model_transform(const giXform3& model_to_world) override
    {
        if (!the_window.record_state())
            return;
        Line line("transform");
        for (int i = 0; i < 16; ++i)
            line << model_to_world.data()[i];
        record(line);
    }
    void set_state(const dgDrawState& state) override
    {
        if (the_window.record_state())
            record(Line("state") << "line" << state.line_colour << state.line_width << state.line_style << "marker"
                                 << state.marker_colour << state.marker_size << "surface" << state.front_colour
                                 << state.back_colour << state.interior_style << state.lighting);
    }
    void draw_run(const dgPrimitiveRun& run) override
    {
        int features = 0;
        for (const dgGraphicalPrimitive* primitive : run.primitives)
            features += primitive->geometry().nfeatures;
        drawn(Line("draw") << topology_name(run.topology) << features << "of" << run.primitives.size(), features);
    }
    void draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans) override
    {
        int features = 0;
        for (const dgFeatureSpan& span : spans)
            features += span.count;
        drawn(Line("draw_part") << topology_name(run.topology) << features << "of" << run.sampling().features(),
              features);
    }
    void draw_primitive(const dgGraphicalPrimitive& primitive) override
    {
        const dgGeometry geometry = primitive.geometry();
        drawn(Line("draw") << topology_name(geometry.topology) << geometry.nfeatures << "of" << 1, geometry.nfeatures);
    }
    void draw_segments(const giPoint3*, int npoints) override
    {
        drawn(Line("draw_segments") << npoints / 2, npoints / 2);
    }
    void read_pixels(const giBox2& device_box, dgImage& image) override
    {
        record(Line("read_pixels") << device_box);
        image.width = static_cast<int>(device_box.width()) + 1;
        image.height = static_cast<int>(device_box.height()) + 1;
        image.rgba.assign(4 * static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height), 0);
    }
    void finish() override { record(Line("finish")); }

    // What only OpenGL drivers do is seen only on a surface that reports to be one.
    void gl_enable(unsigned capability) override { record_gl(Line("gl_enable") << hex(capability)); }
    void gl_disable(unsigned capability) override { record_gl(Line("gl_disable") << hex(capability)); }
    void gl_stencil_func(unsigned function, int reference, unsigned mask) override
    {
        record_gl(Line("gl_stencil_func") << hex(function) << reference << hex(mask));
    }
    void gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes) override
    {
        record_gl(Line("gl_stencil_op") << hex(stencil_fails) << hex(depth_fails) << hex(depth_passes));
    }
    void erase_area(const giBox2& device_box, const gsColour&, dgEraseFramebuffer framebuffer,
                    dgEraseZbuffer zbuffer) override
    {
        record_gl(Line("erase_area") << device_box << (framebuffer ? "colour" : "keep_colour")
                                     << (zbuffer ? "depth" : "keep_depth"));
    }

private:
    void record(const Line& line) { the_window.record(the_prefix + line.text()); }
    void record_gl(const Line& line)
    {
        if (type() == dgDRIVER_OPENGL)
            record(line);
    }
    void drawn(const Line& line, int features)
    {
        record(line);
        the_window.the_features += features;
        if (apClockOverride* clock = apClockOverride::current())
            clock->advance(the_window.spend(features));
    }

    dgTraceWindow& the_window;
    std::string the_prefix;
};

dgTraceWindow::dgTraceWindow(int width, int height) : the_width(width), the_height(height)
{
    capability(dgCAPABILITY_DOUBLE_BUFFERING, 1);
}

dgTraceWindow::~dgTraceWindow() = default;

void dgTraceWindow::resize(int width, int height)
{
    the_width = width;
    the_height = height;
}

std::unique_ptr<dgDriver> dgTraceWindow::make_driver(int inverting)
{
    return std::make_unique<dgTraceDriver>(*this, inverting);
}

double dgTraceWindow::spend(int features)
{
    const double cost = features * the_cost;
    if (the_cost_noise == 0)
        return cost;
    return cost * (1 + std::uniform_real_distribution<double>(-the_cost_noise, the_cost_noise)(the_random));
}

void dgTraceWindow::present()
{
    record("present");
}

void dgTraceWindow::capability(dgDriverCapability capability, int present)
{
    the_capabilities[static_cast<std::size_t>(capability)] = present;
}

int dgTraceWindow::capability(dgDriverCapability capability) const
{
    return the_capabilities[static_cast<std::size_t>(capability)];
}
