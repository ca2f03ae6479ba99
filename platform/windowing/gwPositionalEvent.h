#pragma once

#include "gwEvent.h"

/// Event with the position of the pointer and the modifiers held.
class GW_EXPORT gwPositionalEvent : public gwEvent
{
public:
    gwPositionalEvent() = default;
    gwPositionalEvent(gwWindow* window, int x, int y, int modifiers = 0)
        : gwEvent(window), the_x(x), the_y(y), the_modifiers(modifiers)
    {}

    /// Device pixels of the window, from its lower left corner; y grows upwards.
    int x() const { return the_x; }
    int y() const { return the_y; }
    /// Bits of gwModifier.
    int modifiers() const { return the_modifiers; }

    UT_DECLARE_TYPE(gwPositionalEvent, gwEvent);

private:
    int the_x = 0;
    int the_y = 0;
    int the_modifiers = 0;
};
