#include "gr_rubber_band.h"

#include "grRubberBandCallback.h"
#include "grRubberBandColourAppElement.h"
#include "grRubberBandManager.h"

#include "dgCamera.h"
#include "dgCameraIndex.h"
#include "dgLineWidth.h"
#include "dgMultiline.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "dgRenderer.h"

#include <memory>

namespace
{
constexpr int cross_hair_extent = 4096; // pixels; any window is smaller
enum CursorEcho
{
    no_echo = 0,
    cross_hair = 1
};

struct State
{
    std::unique_ptr<dgMultiline> lines;
    dgRef<grRubberBandCallback> item;
    int suspended = 0;
    int echo_type = no_echo;
    int cursor_x = 0;
    int cursor_y = 0;

    int pending() const { return lines ? lines->count() : 0; }
};

// What every drawing of lines uses again.
struct LineTools
{
    dgCamera camera;
    dgRef<dgCameraIndex> camera_index{new dgCameraIndex(0)};
    dgRef<grRubberBandColourAppElement> colour{new grRubberBandColourAppElement(gsColour(), grLINE_COLOUR)};
    dgRef<dgLineWidth> width{new dgLineWidth(1)};
    dgRef<dgPolyline> line{new dgPolyline};
};

// Neither is ever destroyed: windows and renderers may outlive all other static objects.
State& state()
{
    static State* const state = new State;
    return *state;
}

LineTools& line_tools()
{
    static LineTools* const tools = new LineTools;
    return *tools;
}

void drop_item()
{
    if (!state().item)
        return;
    grRubberBandManager::remove(state().item.get());
    state().item.reset();
}

void add_cross_hair()
{
    const int x = state().cursor_x, y = state().cursor_y;
    gr_rubber_band_line(0, y, cross_hair_extent, y);
    gr_rubber_band_line(x, 0, x, cross_hair_extent);
}

// Lines over a window lie at no depth, and are not to fade with it.
class NoDepthCueing
{
public:
    explicit NoDepthCueing(dgRenderer& renderer) : the_renderer(renderer), the_before(renderer.depth_cueing())
    {
        renderer.depth_cueing(0);
    }
    ~NoDepthCueing() { the_renderer.depth_cueing(the_before); }
    NoDepthCueing(const NoDepthCueing&) = delete;
    NoDepthCueing& operator=(const NoDepthCueing&) = delete;

private:
    dgRenderer& the_renderer;
    int the_before;
};

// Takes off what is drawn and draws the echo at the cursor.
void draw_echo(dgRenderer* renderer)
{
    gr_undraw_rubber_banding();
    if (state().echo_type != cross_hair)
        return;
    add_cross_hair();
    gr_draw_rubber_banding(renderer);
}
}

void gr_rubber_band_line(int x0, int y0, int x1, int y1)
{
    if (state().suspended)
        return;
    if (!state().lines)
        state().lines = std::make_unique<dgMultiline>(4, 1);
    const giPoint3 points[] = {giPoint3(x0, y0, 0), giPoint3(x1, y1, 0)};
    state().lines->add(points);
}

void gr_rubber_band_box(const giPoint2& corner, const giPoint2& opposite)
{
    const int px = static_cast<int>(corner.x()), py = static_cast<int>(corner.y());
    const int qx = static_cast<int>(opposite.x()), qy = static_cast<int>(opposite.y());
    gr_rubber_band_line(px, py, px, qy);
    gr_rubber_band_line(px, qy, qx, qy);
    gr_rubber_band_line(qx, qy, qx, py);
    gr_rubber_band_line(qx, py, px, py);
}

void gr_draw_rubber_banding(dgRenderer* renderer)
{
    if (!state().pending() || state().suspended)
        return;
    drop_item();
    state().item = dgRef<grRubberBandCallback>(new grRubberBandCallback(renderer, gr_draw_rubber_band_lines, nullptr));
    grRubberBandManager::add(state().item.get());
    grRubberBandManager::draw(state().item.get(), grDRAW_RUBBER_BAND_ITEM);
}

void gr_undraw_rubber_banding()
{
    if (!state().pending() || state().suspended)
        return;
    if (state().item)
        grRubberBandManager::draw(state().item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    state().lines->clear();
    drop_item();
}

void gr_suspend_rubber_banding(int on)
{
    if (on)
        gr_undraw_rubber_banding();
    state().suspended = on;
}

void gr_set_cursor_echo_type(int type, dgRenderer* renderer)
{
    state().echo_type = type;
    draw_echo(renderer);
}

int gr_query_cursor_echo_type()
{
    return state().echo_type;
}

void gr_cursor_echo(int x, int y, dgRenderer* renderer)
{
    // Before the echo is drawn: an undraw does not look at the position.
    state().cursor_x = x;
    state().cursor_y = y;
    if (state().echo_type != no_echo)
        draw_echo(renderer);
}

void gr_get_last_cursor_pos(int& x, int& y)
{
    x = state().cursor_x;
    y = state().cursor_y;
}

void gr_draw_rubber_band_lines(grRubberBandItem* item, grRubberBandIt)
{
    if (state().pending())
        gr_draw_device_lines(item->renderer(), *state().lines);
}

void gr_draw_device_lines(dgRenderer* renderer, const dgMultiline& lines)
{
    LineTools& tools = line_tools();
    const giBox2 box = renderer->window_box();
    giBox2 view_window = box;
    view_window.grow(0.5); // its pixels whole: whole numbers are their centres
    tools.camera.window_size(giVector2(box.width() + 1, box.height() + 1));
    tools.camera.view_port_dc(box);
    tools.camera.view_window(view_window);
    const giPoint2 middle = view_window.middle();
    tools.camera.projection_reference_point(
        giPoint3(middle.x(), middle.y(), tools.camera.projection_reference_point().z()));

    const NoDepthCueing no_depth_cueing(*renderer);
    renderer->set_camera(&tools.camera);
    renderer->begin();
    renderer->push_structure(); // colour and width hold for these lines alone
    renderer->execute(*tools.camera_index);
    tools.colour->set(grRubberBandManager::rubber_band_colour(), grLINE_COLOUR);
    renderer->execute(*tools.colour);
    tools.width->value(grRubberBandManager::rubber_band_line_width());
    renderer->execute(*tools.width);
    for (int i = 0; i < lines.count(); ++i)
    {
        const auto points = lines.line(i);
        tools.line->points({points.begin(), points.end()});
        renderer->execute(*tools.line);
    }
    renderer->pop_structure();
    renderer->end();
}
