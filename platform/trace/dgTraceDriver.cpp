#include "dgTraceDriver.h"

#include "dgDrawState.h"
#include "dgGraphicalPrimitive.h"
#include "dgImage.h"
#include "dgPrimitiveRun.h"
#include "dgTraceWindow.h"
#include "giBox2.h"
#include "giXform3.h"

#include <sstream>

namespace
{
constexpr unsigned depth_clamp = 0x864F; // GL_DEPTH_CLAMP

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
    operator std::string() const { return the_text.str(); }

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

dgTraceDriver::dgTraceDriver(dgTraceWindow& window, int inverting)
    : the_window(window), the_prefix(inverting ? "xor " : "")
{}

dgDriverKind dgTraceDriver::type() const
{
    return the_window.driver_type();
}

int dgTraceDriver::capability(int, dgDriverCapability capability) const
{
    return the_window.capability(capability);
}

void dgTraceDriver::begin()
{
    record(Line("begin"));
}

void dgTraceDriver::end()
{
    record(Line("end"));
}

void dgTraceDriver::select_buffer(dgDoubleBuffer buffer)
{
    record(Line("select_buffer") << (buffer == dgBACK_BUFFER ? "back" : "front"));
}

void dgTraceDriver::swap_buffers(dgDoubleBufferSwap mode)
{
    record(Line("swap_buffers") << static_cast<int>(mode));
}

void dgTraceDriver::clip(const giBox2& device_box)
{
    if (device_box.empty())
        record(Line("clip off"));
    else
        record(Line("clip") << device_box);
}

void dgTraceDriver::clear(const giBox2& device_box, const dgBackground& background, dgEraseFramebuffer colour,
                          dgEraseZbuffer depth)
{
    Line line("clear");
    line << device_box << (colour ? "colour" : "keep_colour") << (depth ? "depth" : "keep_depth");
    if (the_window.record_state())
        line << background.bottom << background.top;
    record(line);
}

void dgTraceDriver::set_camera(const dgCameraState& camera)
{
    if (the_window.record_state())
        record(Line("camera") << camera.view_port << camera.front << camera.back << camera.depth_test
                              << camera.depth_cueing);
}

void dgTraceDriver::set_model_transform(const giXform3& model_to_world)
{
    if (!the_window.record_state())
        return;
    Line line("transform");
    for (int i = 0; i < 16; ++i)
        line << model_to_world.data()[i];
    record(line);
}

void dgTraceDriver::set_state(const dgDrawState& state)
{
    if (the_window.record_state())
        record(Line("state") << "line" << state.line_colour << state.line_width << state.line_style << "marker"
                             << state.marker_colour << state.marker_size << "text" << state.text_colour << "surface"
                             << state.front_colour << state.back_colour << state.interior_style << state.lighting);
}

void dgTraceDriver::draw_run(const dgPrimitiveRun& run)
{
    int features = 0;
    for (const dgGraphicalPrimitive* primitive : run.primitives)
        features += primitive->geometry().nfeatures;
    drawn(Line("draw") << topology_name(run.topology) << features << "of" << run.primitives.size(), features);
}

void dgTraceDriver::draw_features(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans)
{
    int features = 0;
    for (const dgFeatureSpan& span : spans)
        features += span.count;
    drawn(Line("draw_part") << topology_name(run.topology) << features << "of" << run.sampling().features(), features);
}

void dgTraceDriver::draw_primitive(const dgGraphicalPrimitive& primitive)
{
    const dgGeometry geometry = primitive.geometry();
    drawn(Line("draw") << topology_name(geometry.topology) << geometry.nfeatures << "of" << 1, geometry.nfeatures);
}

void dgTraceDriver::draw_segments(const giPoint3*, int npoints)
{
    drawn(Line("draw_segments") << npoints / 2, npoints / 2);
}

void dgTraceDriver::read_pixels(const giBox2& device_box, dgImage& image)
{
    record(Line("read_pixels") << device_box);
    image.width = static_cast<int>(device_box.width()) + 1;
    image.height = static_cast<int>(device_box.height()) + 1;
    image.rgba.assign(4 * static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height), 0);
}

void dgTraceDriver::finish()
{
    record(Line("finish"));
    the_window.count_wait();
}

void dgTraceDriver::show_back_buffer(const giBox2& device_box)
{
    record(Line("show_back") << device_box);
}

int dgTraceDriver::add_to_sums(const giBox2& device_box, int anew)
{
    if (the_window.capability(dgCAPABILITY_ACCUMULATION))
        record(Line(anew ? "begin_sums" : "add_to_sums") << device_box);
    return the_window.capability(dgCAPABILITY_ACCUMULATION);
}

void dgTraceDriver::put_mean(const giBox2& device_box, int pictures)
{
    record(Line("put_mean") << pictures << device_box);
}

void dgTraceDriver::gl_enable(unsigned capability)
{
    the_depth_clamped |= capability == depth_clamp;
    record_gl(Line("gl_enable") << hex(capability));
}

void dgTraceDriver::gl_disable(unsigned capability)
{
    the_depth_clamped &= capability != depth_clamp;
    record_gl(Line("gl_disable") << hex(capability));
}

void dgTraceDriver::gl_stencil_func(unsigned function, int reference, unsigned mask)
{
    record_gl(Line("gl_stencil_func") << hex(function) << reference << hex(mask));
}

void dgTraceDriver::gl_stencil_op(unsigned stencil_fails, unsigned depth_fails, unsigned depth_passes)
{
    record_gl(Line("gl_stencil_op") << hex(stencil_fails) << hex(depth_fails) << hex(depth_passes));
}

void dgTraceDriver::erase_area(const giBox2& device_box, const gsColour&, dgEraseFramebuffer framebuffer,
                               dgEraseZbuffer zbuffer)
{
    record_gl(Line("erase_area") << device_box << (framebuffer ? "colour" : "keep_colour")
                                 << (zbuffer ? "depth" : "keep_depth"));
}

void dgTraceDriver::record(const std::string& line)
{
    the_window.record(the_prefix + line);
}

void dgTraceDriver::record_gl(const std::string& line)
{
    if (type() == dgDRIVER_OPENGL)
        record(line);
}

void dgTraceDriver::drawn(const std::string& line, int features)
{
    record(line);
    the_window.count_drawn(features);
}
