#pragma once

#include "dgGLWindow.h"
#include "giTriBlock.h"
#include "giTriBlockcoDList.h"

#include <memory>
#include <vector>

/// Blocks with the list that the library takes, and a window to draw them in.
struct SplitScene
{
    SplitScene();

    /// Returns the number of the new block.
    int add(std::unique_ptr<giTriBlock> block);
    /// A closed box; with fewer triangles the walls across x come first, then those across y.
    int add_box(const giPoint3& low, const giPoint3& high, std::size_t n_triangles = 12);
    /// A rectangle at height z, facing up, or down with facing -1.
    int add_plate(double low_x, double low_y, double high_x, double high_y, double z, int facing = 1);
    std::vector<int> all() const;

    giTriBlockcoDList blocks;
    std::vector<std::unique_ptr<giTriBlock>> owned;
    dgGLWindow window;
};
