#include "grRubberBandWalk.h"

#include "grRubberBandState.h"

grRubberBandWalk::grRubberBandWalk() : the_outer(grRubberBandState::instance().walks)
{
    grRubberBandState::instance().walks = this;
}

grRubberBandWalk::~grRubberBandWalk()
{
    grRubberBandState::instance().walks = the_outer;
}

grRubberBandItem* grRubberBandWalk::next()
{
    const auto& items = grRubberBandState::instance().items;
    while (items && the_position < items->count())
        if (grRubberBandItem* item = (*items)[the_position++])
            return item;
    return nullptr;
}

void grRubberBandWalk::item_left(int position)
{
    for (grRubberBandWalk* walk = grRubberBandState::instance().walks; walk; walk = walk->the_outer)
        if (walk->the_position > position)
            --walk->the_position;
}
