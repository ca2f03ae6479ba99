#pragma once

#include "grStdViewTwiddleTool.h"
#include "gwKeyEvent.h"

#include <memory>

class giPoint2;
class grRubberBandRectangle;

/// Drags out a rectangle over a view and hands its corners to the hooks' aperture_defined at the release. With the
/// argument "centre" the press point is the middle of the rectangle, else a corner. A twiddle that ends without a
/// release in a window hands nothing on.
class GR_EXPORT grApertureTool : public grStdViewTwiddleTool
{
public:
    grApertureTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grApertureTool() override;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grApertureTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grApertureTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint2 first_corner(const gwPositionalEvent& current) const;

    gwKeyEvent the_press;
    std::unique_ptr<grRubberBandRectangle> the_rectangle;
};
