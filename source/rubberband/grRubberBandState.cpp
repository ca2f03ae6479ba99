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
