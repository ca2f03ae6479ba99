#pragma once

#include "gwInput.h"
#include "gwWindow.h"

/// Window with an input of its own, resized by the application.
class GW_EXPORT gwDrawingArea : public gwWindow
{
public:
    ~gwDrawingArea() override;

    /// Where the events of this window are posted.
    gwInput& input() { return the_input; }
    /// width and height are device pixels, 0 or more.
    virtual void resize(int width, int height) = 0;

    UT_DECLARE_TYPE(gwDrawingArea, gwWindow);

protected:
    gwDrawingArea() = default;

private:
    gwInput the_input;
};
