#pragma once

#include "grStdViewTwiddleTool.h"

/// Tells the hooks of start, of mouse events up to the end, and of the end, so that an application can act on a view
/// cube of its own. The standard factory does not make it.
class GR_EXPORT grViewCubeTool : public grStdViewTwiddleTool
{
public:
    using grStdViewTwiddleTool::grStdViewTwiddleTool;

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grViewCubeTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grViewCubeTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
