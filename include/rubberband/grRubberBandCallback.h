#pragma once

#include "grRubberBandItem.h"

/// An item that an application's function draws.
class GR_EXPORT grRubberBandCallback : public grRubberBandItem
{
public:
    /// Draws in the renderer's selected driver, the same every time until the item is undrawn, because in XOR mode
    /// drawing again is what removes it. It may release the item.
    using Callback = void (*)(grRubberBandItem* item, grRubberBandIt it);

    grRubberBandCallback(dgRenderer* renderer, Callback callback, void* user_data);

    grRubberBandItemType type() const override;
    void draw(grRubberBandIt it, grRubberBandSelectDriver select) override;
    void print(std::ostream& os) const override;

    UT_DECLARE_TYPE(grRubberBandCallback, dgBase);

protected:
    void execute(grRubberBandIt it, int xor_mode) override;

private:
    Callback the_callback;
};
