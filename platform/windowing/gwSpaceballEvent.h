#pragma once

#include "giVector3.h"
#include "gwPositionalEvent.h"

/// Motion of a six-axis device. It carries the position of the pointer, which tells what view is meant.
class GW_EXPORT gwSpaceballEvent : public gwPositionalEvent
{
public:
    /// The length of one report of a usual device.
    static constexpr double usual_seconds = 1.0 / 60;

    gwSpaceballEvent() = default;
    gwSpaceballEvent(gwWindow* window, int x, int y, int modifiers, const giVector3& rotation,
                     const giVector3& translation, double seconds = usual_seconds)
        : gwPositionalEvent(window, x, y, modifiers), the_rotation(rotation), the_translation(translation),
          the_seconds(seconds)
    {}

    /// Deflections about and along the x (right), y (up) and z (towards the user) axes of the screen, -1 to 1 each.
    const giVector3& rotation() const { return the_rotation; }
    const giVector3& translation() const { return the_translation; }
    /// For how long the device was deflected so.
    double seconds() const { return the_seconds; }
    UT_DECLARE_TYPE(gwSpaceballEvent, gwEvent);

private:
    giVector3 the_rotation;
    giVector3 the_translation;
    double the_seconds = usual_seconds;
};
