#pragma once

#include "grStdViewTwiddleTool.h"

/// Moves the world point under the pointer to the middle of the view; acts at the press.
class GR_EXPORT grPanCentreTool : public grStdViewTwiddleTool
{
public:
    grPanCentreTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grPanCentreTool* ut_dynamic_cast(grTwiddleTool* tool);
    static const grPanCentreTool* ut_dynamic_cast(const grTwiddleTool* tool);

protected:
    /// Moves the world point under the event to the middle of the target view and saves the camera.
    virtual void do_action(const gwKeyEvent& event);

    void start_twiddle(const gwKeyEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;
};
