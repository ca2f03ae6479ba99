#pragma once

#include "grStdViewTwiddleTool.h"

/// Looks along a diagonal of the axes, so that all three show alike, and fits the view to its contents; acts at the
/// press.
class GR_EXPORT grIsometricTool : public grStdViewTwiddleTool
{
public:
    grIsometricTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grIsometricTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grIsometricTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    /// Turns the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Turns a view and tells those who watch its camera.
    static void isometric_view(dgView* view);
};
