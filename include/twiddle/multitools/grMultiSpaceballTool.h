#pragma once

#include "grMultiTool.h"
#include "grSpaceballTool.h"

/// Turns and moves the views that belong with the one under the pointer together with that one, each about its own
/// centre.
class GR_EXPORT grMultiSpaceballTool : public grMultiTool<grSpaceballTool, giPoint3>
{
public:
    using grMultiTool::grMultiTool;

    UT_DECLARE_TYPE(grMultiSpaceballTool, grTwiddleTool);

protected:
    void start_twiddle(const gwKeyEvent& event) override;
    void spaceball_event(const gwSpaceballEvent& event) override;
};
