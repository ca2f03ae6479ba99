#pragma once

#include "dgS.h"

#include <vector>

/// Takes the rubber bands off that would lie under what is drawn, and puts them back at the end of its life. Nothing
/// happens while grRubberBandManager::do_redraw is off or there are no bands.
class grRubberBandsOff
{
public:
    /// Takes nothing off yet. The list must outlive the object; a renderer that leaves it meanwhile is not used again.
    explicit grRubberBandsOff(const dgRenderercoDList& renderers) : the_renderers(renderers) {}
    ~grRubberBandsOff();
    grRubberBandsOff(const grRubberBandsOff&) = delete;
    grRubberBandsOff& operator=(const grRubberBandsOff&) = delete;

    /// To be called before drawing with one renderer of the list, or with all of them; more than once does no more.
    void take_off(dgRenderer* renderer);
    void take_off_all();

    /// For drawing that may leave the buffer selected that is not seen: bands are put back into the selected one.
    void select_front_buffers();

private:
    const dgRenderercoDList& the_renderers;
    std::vector<dgRenderer*> the_bare; // whose bands are off
};
