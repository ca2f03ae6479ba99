#pragma once

#include "giPoint2.h"
#include "grSelectTool.h"

#include <memory>

class grRubberBandRectangle;

/// Drags out a rectangle over a view and selects what shows something in it at the release: with "all" also what lies
/// there behind other things. Arguments and hooks as of grSelectTool. A click selects what lies under the pointer, and
/// a twiddle that ends without a release in a window nothing.
class GR_EXPORT grSelectBoxTool : public grSelectTool
{
public:
    grSelectBoxTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);
    ~grSelectBoxTool() override;

    UT_DECLARE_TYPE(grSelectBoxTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

private:
    giPoint2 the_start_point; // device
    std::unique_ptr<grRubberBandRectangle> the_rectangle;
};
