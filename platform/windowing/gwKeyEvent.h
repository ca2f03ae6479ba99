#pragma once

#include "gwPositionalEvent.h"
#include "gwTypes.h"

/// Press or release of a key or button, or one step of the mouse wheel (always a press).
class GW_EXPORT gwKeyEvent : public gwPositionalEvent
{
public:
    gwKeyEvent() = default;
    gwKeyEvent(gwWindow* window, int x, int y, int modifiers, int transition, gwKeyType key_type, int key_number,
               double delta = 0.0)
        : gwPositionalEvent(window, x, y, modifiers), the_delta(delta), the_transition(transition),
          the_key_type(key_type), the_key_number(key_number)
    {}

    /// Makes it a synthetic event: fields that are not given become 0.
    void initialise_key(gwKeyType key_type, int key_number, int transition, gwWindow* in_window = nullptr, int x = 0,
                        int y = 0, int modifiers = 0, double delta = 0.0)
    {
        *this = gwKeyEvent(in_window, x, y, modifiers, transition, key_type, key_number, delta);
    }

    /// 1 is a press, every other value a release.
    int transition() const { return the_transition; }
    gwKeyType key_type() const { return the_key_type; }
    int key_number() const { return the_key_number; }
    /// Travel of the wheel in steps, positive away from the user, which zooms in; 0 for other keys.
    double delta() const { return the_delta; }

    UT_DECLARE_TYPE(gwKeyEvent, gwEvent);

private:
    double the_delta = 0.0;
    int the_transition = gwRELEASED;
    gwKeyType the_key_type = gwQWERTY_KEY;
    int the_key_number = 0;
};
