#pragma once

#include "giBox2.h"

/// What is picked: whatever a view shows inside a box of device pixels.
class dgPickAperture
{
public:
    explicit dgPickAperture(const giBox2& device_box) : the_device_box(device_box) {}

    const giBox2& device_box() const { return the_device_box; }

private:
    giBox2 the_device_box;
};
