#pragma once

#include "giBox2.h"
#include "gwExport.h"
#include "utTypeID.h"

/// Handle of a native or headless window. Events carry its address and views are found by it, so it is not copied.
class GW_EXPORT gwWindow
{
public:
    virtual ~gwWindow();
    UT_DECLARE_ROOT_TYPE(gwWindow);

    /// Size in device pixels; 0 while the window is minimised.
    virtual int width() const = 0;
    virtual int height() const = 0;

    /// The positions of its pixels: (0, 0) is the lower left one, (width - 1, height - 1) the upper right one.
    giBox2 device_box() const { return giBox2(0, 0, width() - 1, height() - 1); }

protected:
    gwWindow() = default;
    gwWindow(const gwWindow&) = default;
    gwWindow& operator=(const gwWindow&) = default;
};
