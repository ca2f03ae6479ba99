#pragma once

#include "grStdViewTwiddleTool.h"

/// Looks along the z axis again, with y up, and fits the view to its contents; acts at the press.
class GR_EXPORT grResetTool : public grStdViewTwiddleTool
{
public:
    grResetTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grResetTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grResetTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    /// Resets the target view.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    /// Resets a view and tells those who watch its camera.
    static void reset_view(dgView* view);
};
