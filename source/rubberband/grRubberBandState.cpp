#include "grRubberBandState.h"

#include "dgRenderer.h"

grRubberBandState& grRubberBandState::instance()
{
    static grRubberBandState* const state = new grRubberBandState;
    return *state;
}

grRefreshRecorder& grRubberBandState::refresh_recorder()
{
    if (!recorder)
        recorder = std::make_unique<grRefreshRecorder>(2);
    return *recorder;
}

coSet<dgRenderer*>& grRubberBandState::slow_set()
{
    if (!slow_renderers)
        slow_renderers = std::make_unique<coSet<dgRenderer*>>(4, 50);
    return *slow_renderers;
}

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

grRubberBandDriver::grRubberBandDriver(dgRenderer* renderer, int index)
    : the_renderer(renderer), the_before(renderer->current_driver_index()),
      the_outer(grRubberBandState::instance().drivers)
{
    grRubberBandState::instance().drivers = this;
    renderer->select_driver(index);
}

grRubberBandDriver::~grRubberBandDriver()
{
    grRubberBandState::instance().drivers = the_outer;
    if (the_renderer)
        the_renderer->select_driver(the_before);
}

void grRubberBandDriver::to_be_deleted(dgRenderer* renderer)
{
    for (grRubberBandDriver* driver = grRubberBandState::instance().drivers; driver; driver = driver->the_outer)
        if (driver->the_renderer == renderer)
            driver->the_renderer = nullptr;
}
