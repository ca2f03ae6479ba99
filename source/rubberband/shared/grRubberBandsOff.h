#pragma once

#include "dgS.h"

#include <functional>
#include <vector>

/// Takes the rubber bands off that would lie under what is drawn, and puts them back at the end of its life. Nothing
/// happens while grRubberBandManager::do_redraw is off or there are no bands.
///
/// Bands in main planes that go by drawing the scene again are taken off by what is drawn, and there alone. The rest of
/// the picture is left to clear_beside.
class grRubberBandsOff
{
public:
    /// Draws what will not be drawn of a renderer's picture.
    using ClearBeside = std::function<void(dgRenderer&)>;

    /// Takes nothing off yet. The list must outlive the object; a renderer that leaves it meanwhile is not used again.
    explicit grRubberBandsOff(const dgRenderercoDList& renderers, ClearBeside clear_beside = nullptr)
        : the_renderers(renderers), the_clear_beside(std::move(clear_beside))
    {}
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
    ClearBeside the_clear_beside;
    std::vector<dgRenderer*> the_bare; // whose bands are off
};
