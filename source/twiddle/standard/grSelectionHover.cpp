#include "grSelectionHover.h"

#include "dgS.h"
#include "dgView.h"
#include "grSelection.h"
#include "grStdTwiddleHooks.h"
#include "grTwiddleMan.h"
#include "gr_pick.h"
#include "gwInput.h"
#include "gwMouseEvent.h"
#include "utTypeID.h"

UT_DEFINE_TYPE(grSelectionHover, coReceiver);

grSelectionHover::grSelectionHover(grTwiddleMan& man, grStdTwiddleHooks& hooks) : the_man(man), the_hooks(hooks)
{
    if (gwInput* input = man.input())
        input->call_list().add(gwCR_event, coCallFunc::member<&grSelectionHover::input_event>(this));
}

grSelectionHover::~grSelectionHover() = default;

void grSelectionHover::input_event(void*, void* data)
{
    const gwMouseEvent* event = gwMouseEvent::ut_dynamic_cast(&gwInput::event(data));
    // A tool that has ended may still move the view.
    if (!event || the_man.current_tool_state() == grTWID_TWIDDLING)
        return;
    const giPoint2 position(event->x(), event->y());
    const dgView* view = dgS_find_view(event->window(), position);
    grSelection* selection = view ? the_hooks.identify_selection(*view) : nullptr;
    if (!selection)
        return;
    const std::vector<dgPickHit> hits = gr_pick(*view, position);
    selection->hover(hits.empty() ? dgElementPath() : selection->part(hits.front().path));
}
