#pragma once

#include "coSet.h"

/// A set of block numbers.
using grBlockIdx = coSet<int>;
