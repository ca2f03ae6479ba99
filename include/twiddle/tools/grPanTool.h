#pragma once

#include "giPoint2.h"
#include "grStdViewTwiddleTool.h"

/// Moves the picture of a view with the pointer.
///
/// With the argument "and_pan_centre" a click without any mouse event moves what is under the pointer to the middle of
/// the view.
class GR_EXPORT grPanTool : public grStdViewTwiddleTool
{
public:
    grPanTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grPanTool, grTwiddleTool);

protected:
    /// Moves the world point under the event to the middle of the target view.
    virtual void pan_centre_action(const gwKeyEvent& event) const;

    void start_twiddle(const gwKeyEvent& event) override;
    void mouse_event(const gwMouseEvent& event) override;
    void end_twiddle(const gwKeyEvent& event) override;

    const giPoint2& last_point() const { return the_last_point; }

private:
    giPoint2 the_last_point; // device
    int the_moved = 0;
};
