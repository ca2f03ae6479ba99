#include "grRubberBandCallback.h"

#include <ostream>

UT_DEFINE_TYPE(grRubberBandCallback, grRubberBandItem);

grRubberBandCallback::grRubberBandCallback(dgRenderer* renderer, Callback callback, void* user_data)
    : grRubberBandItem(renderer, user_data), the_callback(callback)
{}

grRubberBandItemType grRubberBandCallback::type() const
{
    return grRUBBER_BAND_CALLBACK_ITEM;
}

void grRubberBandCallback::draw(grRubberBandIt it, grRubberBandSelectDriver select)
{
    draw_by_protocol(it, select);
}

// Deliberate: no hooks and so no stencil, because a callback brackets its drawing itself; a pixel that two of its lines
// share shows as if neither were there.
void grRubberBandCallback::execute(grRubberBandIt it, int)
{
    if (the_callback)
        the_callback(this, it);
}

void grRubberBandCallback::print(std::ostream& os) const
{
    os << "grRubberBandCallback {\n";
    grRubberBandItem::print(os);
    os << "}\n";
}
