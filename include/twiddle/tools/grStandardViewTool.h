#pragma once

#include "grOneShotViewTool.h"

/// Looks at the contents of the view under the pointer from one of six sides: "front" (or no argument), "back", "left",
/// "right", "top" or "bottom". Up is the z axis, with "x_up" or "y_up" among the arguments another one; see
/// grViewOperations::look.
class GR_EXPORT grStandardViewTool : public grOneShotViewTool
{
public:
    grStandardViewTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grStandardViewTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
