#include "grRubberBandViewItem.h"

#include "dgView.h"

UT_DEFINE_TYPE(grRubberBandViewItem, grRubberBandItem);

grRubberBandViewItem::grRubberBandViewItem(dgRenderer* renderer, dgView* view, void* user_data)
    : grRubberBandItem(renderer, user_data), the_view(view)
{}

void grRubberBandViewItem::draw(grRubberBandIt it, grRubberBandSelectDriver select)
{
    draw_by_protocol(it, select);
}

void grRubberBandViewItem::turn_off_hlhsr()
{
    dgViewShadingContext& shading = the_view->shading_context();
    the_have_turned_off_hlhsr = 0;
    the_saved_hlhsr_mode = shading.hlhsr_mode;
    if (!the_turn_off_hlhsr || the_saved_hlhsr_mode == dgHLHSR_OFF)
        return;
    shading.set_hlhsr_mode(dgHLHSR_OFF);
    the_have_turned_off_hlhsr = 1;
}

void grRubberBandViewItem::turn_on_hlhsr()
{
    // Deliberate: the flag stays set, so that a second call restores the mode again; turning off clears it.
    if (the_have_turned_off_hlhsr)
        the_view->shading_context().set_hlhsr_mode(the_saved_hlhsr_mode);
}

void grRubberBandViewItem::execute(grRubberBandIt it, int xor_mode)
{
    dgRenderer* const in = renderer();
    before_begin(it, xor_mode, in, the_view);
    the_view->begin();
    after_begin(it, xor_mode, in, the_view);
    execute_in_view(*the_view);
    if (cancelled())
        return;
    before_end(it, xor_mode, in, the_view);
    the_view->end();
    after_end(it, xor_mode, in, the_view);
}
