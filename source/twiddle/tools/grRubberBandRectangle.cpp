#include "grRubberBandRectangle.h"

#include "dgView.h"
#include "giPoint2.h"
#include "giPoint3.h"
#include "grRubberBandCallback.h"
#include "gr_rubber_band.h"

grRubberBandRectangle::grRubberBandRectangle() = default;

grRubberBandRectangle::~grRubberBandRectangle()
{
    forget();
}

void grRubberBandRectangle::draw(const dgView& view, const giPoint2& corner, const giPoint2& opposite)
{
    if (the_item && the_item->renderer() != view.renderer())
        forget();
    if (!view.renderer())
        return;
    if (!the_item)
    {
        the_item = dgRef<grRubberBandCallback>(new grRubberBandCallback(view.renderer(), draw_lines, this));
        grRubberBandManager::add(the_item.get());
    }
    grRubberBandManager::draw(the_item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    // While rubber banding is suspended the old lines stay on the screen, to be undrawn later.
    if (the_item->state() == grDRAWN_RUBBER_BAND_ITEM)
        return;
    const double px = static_cast<int>(corner.x()), py = static_cast<int>(corner.y());
    const double qx = static_cast<int>(opposite.x()), qy = static_cast<int>(opposite.y());
    const giPoint3 corners[] = {{px, py, 0}, {px, qy, 0}, {qx, qy, 0}, {qx, py, 0}, {px, py, 0}};
    the_lines.clear();
    for (int side = 0; side < 4; ++side)
        the_lines.add({corners + side, 2});
    grRubberBandManager::draw(the_item.get(), grDRAW_RUBBER_BAND_ITEM);
}

void grRubberBandRectangle::finish(const dgView* view)
{
    if (the_item && view && view->renderer() == the_item->renderer())
        grRubberBandManager::draw(the_item.get(), grUNDRAW_RUBBER_BAND_ITEM);
    forget();
}

void grRubberBandRectangle::forget()
{
    if (!the_item)
        return;
    grRubberBandManager::remove(the_item.get());
    the_item.reset();
}

void grRubberBandRectangle::draw_lines(grRubberBandItem* item, grRubberBandIt)
{
    const auto& self = *static_cast<const grRubberBandRectangle*>(item->user_data());
    gr_draw_device_lines(item->renderer(), self.the_lines);
}
