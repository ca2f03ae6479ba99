#pragma once

#include "giTriBlock.h"

#include <functional>
#include <memory>
#include <vector>

/// What a file of meshes holds, in its order.
using ms_blocks = std::vector<std::unique_ptr<giTriBlock>>;

/// Gets the blocks of a file as they come.
using ms_block_taker = std::function<void(std::unique_ptr<giTriBlock>)>;

/// Told how much of a file is done, from 0 to 1.
using ms_progress = std::function<void(double)>;
