#pragma once

#include "dgGLWindow.h"
#include "giTriBlock.h"
#include "giTriBlockcoDList.h"

#include <memory>
#include <vector>

/// The device that all tests of the program draw with.
std::shared_ptr<dgGLDevice> split_device();

/// Blocks with the list that the library takes, and a window to draw them in.
struct SplitScene
{
    SplitScene() : window(split_device(), 8, 8) {}

    /// Returns the number of the new block.
    int add(std::unique_ptr<giTriBlock> block);
    /// A closed box.
    int add_box(const giPoint3& low, const giPoint3& high);
    /// A rectangle at height z, facing up, or down with facing -1.
    int add_plate(double low_x, double low_y, double high_x, double high_y, double z, int facing = 1);
    giBox3 box() const;

    giTriBlockcoDList blocks;
    std::vector<std::unique_ptr<giTriBlock>> owned;
    dgGLWindow window;
};
