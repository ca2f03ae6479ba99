#pragma once

#include "giVector3.h"
#include "grExport.h"

#include <array>

class gwResourceDB;
class gwSpaceballEvent;

/// How the deflections of a six-axis device become the motion of a view.
///
/// Resources; an absent or unusable value leaves the default:
///     spaceball_axes               x,y,z,rx,ry,rz  the device's axis for each of: right, up, towards the user, and
///                                                  turning about these three; r stands before rotations
///     spaceball_signs              1,1,1,1,1,1     multiplies these six; -1 turns a direction round, 0 switches it off
///     spaceball_rotation_gain      number, 1       multiplies the rotations
///     spaceball_translation_gain   number, 1       multiplies the translations
///     spaceball_dead_zone          number, 0       deflections up to this share of the full one count as none, and
///                                                  those above it as starting there; from 0 on and below 1
///     spaceball_dominant_axis      yes/no, no      only the axis that is deflected most acts
/// They act in this order: axes, dead zone, dominant axis, signs, gains.
class GR_EXPORT grSpaceballSettings
{
public:
    /// db may be null.
    explicit grSpaceballSettings(const gwResourceDB* db);

    /// The motion of an event, in the event's own terms: deflections from -1 to 1 where the gains are 1.
    void motion(const gwSpaceballEvent& event, giVector3& rotation, giVector3& translation) const;

private:
    std::array<int, 6> the_axes{0, 1, 2, 3, 4, 5};
    std::array<double, 6> the_signs{1, 1, 1, 1, 1, 1};
    double the_rotation_gain = 1;
    double the_translation_gain = 1;
    double the_dead_zone = 0;
    int the_dominant_axis = 0;
};
