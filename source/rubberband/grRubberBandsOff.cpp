#include "grRubberBandsOff.h"

#include "dgRenderer.h"
#include "grRubberBandManager.h"

#include <algorithm>

void grRubberBandsOff::take_off(dgRenderer* renderer)
{
    if (!grRubberBandManager::do_redraw() || grRubberBandManager::empty())
        return;
    if (std::find(the_bare.begin(), the_bare.end(), renderer) != the_bare.end())
        return;
    the_bare.push_back(renderer);
    const bool scene_takes_off =
        the_clear_beside && grRubberBandManager::mode(renderer) == grRUBBER_BAND_IN_MAIN_PLANES;
    grRubberBandManager::temp_undraw(renderer);
    if (scene_takes_off)
        the_clear_beside(*renderer);
}

void grRubberBandsOff::take_off_all()
{
    // By index: what undraws a band may take a renderer out of the list.
    for (int i = 0; i < the_renderers.count(); ++i)
        take_off(the_renderers[i]);
}

void grRubberBandsOff::select_front_buffers()
{
    for (dgRenderer* renderer : the_bare)
        if (the_renderers.contains(renderer))
            renderer->select_buffer(dgFRONT_BUFFER);
}

grRubberBandsOff::~grRubberBandsOff()
{
    for (dgRenderer* renderer : the_bare)
        if (the_renderers.contains(renderer))
            grRubberBandManager::update(renderer);
}
