#pragma once

#include "gwExport.h"
#include "utTypeID.h"

class gwWindow;

/// Base of what a windowing library reports. Events are small values that live on the stack of whoever posts them; a
/// receiver may keep a copy, never the address.
class GW_EXPORT gwEvent
{
public:
    explicit gwEvent(gwWindow* window = nullptr) : the_window(window) {}
    gwEvent(const gwEvent&) = default;
    gwEvent& operator=(const gwEvent&) = default;
    virtual ~gwEvent() = default;
    UT_DECLARE_ROOT_TYPE(gwEvent);

    /// The window it happened in, not owned; null for a synthetic event.
    gwWindow* window() const { return the_window; }

private:
    gwWindow* the_window;
};
