#pragma once

#include "gwExport.h"

class gwWindow;
class utTypeID;

/// Base of what a windowing library reports. Events are small values that live on the stack of whoever posts them; a
/// receiver may keep a copy, never the address.
class GW_EXPORT gwEvent
{
public:
    explicit gwEvent(gwWindow* window = nullptr) : the_window(window) {}
    gwEvent(const gwEvent&) = default;
    gwEvent& operator=(const gwEvent&) = default;
    virtual ~gwEvent() = default;
    virtual const utTypeID& ut_dynamic_type() const;
    virtual int ut_is_kind_of(const utTypeID& type) const;
    static const utTypeID& ut_static_type();
    static gwEvent* ut_dynamic_cast(gwEvent* event) { return event; }
    static const gwEvent* ut_dynamic_cast(const gwEvent* event) { return event; }

    /// The window it happened in, not owned; null for a synthetic event.
    gwWindow* window() const { return the_window; }

private:
    gwWindow* the_window;
};
