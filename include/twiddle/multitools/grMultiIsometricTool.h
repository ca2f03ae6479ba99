#pragma once

#include "grIsometricTool.h"
#include "grMultiTool.h"

/// Shows the views that belong with the one under the pointer isometrically, as well as that one.
class GR_EXPORT grMultiIsometricTool : public grMultiTool<grIsometricTool>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiIsometricTool, grTwiddleTool);

protected:
    void do_action(const gwKeyEvent& event) override;
};
