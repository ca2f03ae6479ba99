#pragma once

#include "grStdTwiddleHooks.h"

/// The viewer's settings of the standard tools: views spin on when let go while moving, and are redrawn fluidly.
class vwHooks : public grStdTwiddleHooks
{
public:
    /// framerate is what moving views shall hold, in frames per second; 0 takes the resource "framerate", if any.
    vwHooks(const gwResourceDB& db, double framerate);
};
