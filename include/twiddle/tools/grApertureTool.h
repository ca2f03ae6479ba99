#pragma once

#include "grStdViewTwiddleTool.h"
#include "gwKeyEvent.h"

#include <memory>

class giPoint2;
class grRubberBandRectangle;

/// Drags out a rectangle over a view and hands its corners to the hooks' aperture_defined at the release. With the
/// argument "centre" the press point is the middle of the rectangle, else a corner. A twiddle that ends without a
/// release in a window, or whose view has gone, hands nothing on.
class GR_EXPORT grApertureTool : public grStdViewTwiddleTool
{
public:
    grApertureTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grApertureTool() override;

    UT_DECLARE_TYPE(grApertureTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint2 first_corner(const gwPositionalEvent& current) const;

    gwKeyEvent the_press;
    std::unique_ptr<grRubberBandRectangle> the_rectangle;
};
