#pragma once

#include "giPlane.h"
#include "giTriBlock.h"

/// Cuts a block by a plane the slow way: maps and sets, one rule after the other.
giTriBlock literal_cut(const giTriBlock& block, const giPlane& plane, double tolerance, bool keep_negative);
