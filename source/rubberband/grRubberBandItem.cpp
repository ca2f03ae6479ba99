#include "grRubberBandItem.h"

#include "grRubberBandManager.h"

#include "dgDriver.h"
#include "dgRef.h"
#include "dgRenderer.h"
#include "dgView.h"
#include "dgWindow.h"

#include <ostream>

UT_DEFINE_TYPE(grRubberBandItem, dgBase);

namespace
{
int the_instance_count = 0;

// By their OpenGL numbers.
constexpr unsigned stencil_test = 0x0B90;
constexpr unsigned not_equal = 0x0205;
constexpr unsigned keep = 0x1E00;
constexpr unsigned replace = 0x1E01;

bool uses_stencil(int xor_mode, const dgRenderer* renderer)
{
    return xor_mode && grRubberBandManager::xor_mode_with_stencil_planes() &&
           renderer->driver()->type() == dgDRIVER_OPENGL;
}
}

grRubberBandItem::grRubberBandItem(dgRenderer* renderer, void* user_data)
    : the_renderer(renderer), the_user_data(user_data)
{
    ++the_instance_count;
    renderer->driver(1); // so that it is there before the first drawing
}

grRubberBandItem::~grRubberBandItem()
{
    while (grRubberBandManager::item_in_list(this))
        grRubberBandManager::remove(this);
    --the_instance_count;
}

int grRubberBandItem::instance_count()
{
    return the_instance_count;
}

void grRubberBandItem::turn_off_hlhsr()
{
    if (!the_turn_off_hlhsr)
        return;
    the_saved_hlhsr_mode = the_renderer->hlhsr_mode();
    the_renderer->set_hlhsr_mode(dgHLHSR_OFF);
    the_have_turned_off_hlhsr = 1;
}

void grRubberBandItem::turn_on_hlhsr()
{
    if (!the_have_turned_off_hlhsr)
        return;
    the_renderer->set_hlhsr_mode(the_saved_hlhsr_mode);
    the_have_turned_off_hlhsr = 0;
}

void grRubberBandItem::before_begin(grRubberBandIt, int xor_mode, dgRenderer* renderer, dgView* view)
{
    if (!uses_stencil(xor_mode, renderer))
        return;
    dgWindow* window = renderer->window(renderer->current_driver_index());
    window->begin();
    // With neither option it is the stencil that is cleared.
    renderer->driver()->erase_area(view ? view->camera().view_port_dc() : renderer->window_box(), gsColour(0, 0, 0),
                                   dgERASE_FRAMEBUFFER_NO, dgERASE_ZBUFFER_NO);
    window->end();
}

void grRubberBandItem::after_begin(grRubberBandIt, int xor_mode, dgRenderer* renderer, dgView*)
{
    if (!uses_stencil(xor_mode, renderer))
        return;
    dgDriver* driver = renderer->driver();
    driver->gl_enable(stencil_test);
    driver->gl_stencil_func(not_equal, 1, 1);
    driver->gl_stencil_op(keep, replace, replace);
}

void grRubberBandItem::before_end(grRubberBandIt, int xor_mode, dgRenderer* renderer, dgView*)
{
    if (uses_stencil(xor_mode, renderer))
        renderer->driver()->gl_disable(stencil_test);
}

void grRubberBandItem::after_end(grRubberBandIt, int, dgRenderer*, dgView*) {}

void grRubberBandItem::set_draw_state(grRubberBandIt it, grRubberBandSelectDriver)
{
    if (it == grDRAW_RUBBER_BAND_ITEM)
        the_state = grDRAWN_RUBBER_BAND_ITEM;
    else if (the_state == grDRAWN_RUBBER_BAND_ITEM)
        the_state = grUNDRAWN_RUBBER_BAND_ITEM;
}

void grRubberBandItem::draw_by_protocol(grRubberBandIt it, grRubberBandSelectDriver select)
{
    if (the_cancelled)
        return;
    // What is drawn may release the item. One that nobody references cannot be released.
    const dgRef<grRubberBandItem> held(reference_count() > 0 ? this : nullptr);
    const bool select_driver = select == grRUBBER_BAND_SELECT_DRIVER;
    const auto modes = grRubberBandManager::start_draw(the_renderer, select_driver);
    // Asked how to draw, the application may have destroyed the view or released the item.
    const bool wanted = !the_cancelled && !(held && reference_count() == 1);
    if (wanted && it == grDRAW_RUBBER_BAND_ITEM)
    {
        if (the_state != grDRAWN_RUBBER_BAND_ITEM)
            execute_without_hlhsr(it, modes.xor_mode);
    }
    else if (wanted && the_state == grDRAWN_RUBBER_BAND_ITEM)
    {
        if (modes.xor_mode)
            execute_without_hlhsr(it, modes.xor_mode);
        else
            undraw_by_redraw(modes.overlay);
    }
    if (!the_renderer_is_gone)
        grRubberBandManager::end_draw(the_renderer, modes.xor_mode, select_driver);
}

void grRubberBandItem::execute_without_hlhsr(grRubberBandIt it, int xor_mode)
{
    turn_off_hlhsr();
    execute(it, xor_mode);
    if (the_cancelled)
        return;
    the_state = it == grDRAW_RUBBER_BAND_ITEM ? grDRAWN_RUBBER_BAND_ITEM : grUNDRAWN_RUBBER_BAND_ITEM;
    turn_on_hlhsr();
}

void grRubberBandItem::undraw_by_redraw(bool overlay)
{
    if (overlay)
    {
        turn_off_hlhsr();
        the_renderer->erase(1);
    }
    // Before the others are put back, so that this one is left out.
    the_state = grUNDRAWN_RUBBER_BAND_ITEM;
    grRubberBandManager::redraw_all_that_are_drawn(the_renderer, overlay);
    if (overlay && !the_cancelled)
        turn_on_hlhsr();
}

void grRubberBandItem::print(std::ostream& os) const
{
    os << "grRubberBandItem {\n"
       << "  type is " << type() << "  renderer is " << static_cast<const void*>(the_renderer) << '\n'
       << "  state is " << the_state << "  user_data is " << static_cast<const void*>(the_user_data) << '\n'
       << "  cancelled is " << the_cancelled << '\n'
       << "  turn off hlhsr flag is " << the_turn_off_hlhsr << '\n'
       << "  the_have_turned_off_hlhsr is " << the_have_turned_off_hlhsr << '\n'
       << "  the_saved_hlhsr_mode is " << static_cast<int>(the_saved_hlhsr_mode) << '\n'
       << "}\n";
}

std::ostream& operator<<(std::ostream& os, const grRubberBandItem& item)
{
    item.print(os);
    return os;
}
