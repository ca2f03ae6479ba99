#pragma once

#include "grOneShotViewTool.h"

/// Fits the view under the pointer to its contents and keeps the direction in which it looks.
class GR_EXPORT grFitTool : public grOneShotViewTool
{
public:
    grFitTool(const utString& args, const gwResourceDB* db, grStdTwiddleHooks* hooks);

    UT_DECLARE_TYPE(grFitTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
