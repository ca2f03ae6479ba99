#pragma once

#include "giBox2.h"
#include "giPoint2.h"
#include "grStdViewTwiddleTool.h"

#include <memory>

class grRubberBandRectangle;

/// Drags out a rectangle over a view and zooms the view to it at the release. A click, and a twiddle that ends without
/// a release in a window, zoom nothing.
class GR_EXPORT grZoomBoxTool : public grStdViewTwiddleTool
{
public:
    grZoomBoxTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grZoomBoxTool() override;

    UT_DECLARE_TYPE(grZoomBoxTool, grTwiddleTool);

protected:
    /// Zooms the target view to a box in device pixels, whose corners may be in any order; 0 when it is too small.
    virtual int zoom_action(const giBox2& device_box) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint2 the_start_point; // device
    std::unique_ptr<grRubberBandRectangle> the_rectangle;
};
