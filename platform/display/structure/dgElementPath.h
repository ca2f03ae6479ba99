#pragma once

#include "dgGraphicalElement.h"
#include "dgRef.h"

#include <vector>

/// Names a part of a network by the way to it from the root: the calls that lead there, the outermost first, and behind
/// them, if that is meant, one element of the structure called last. Ending with a call, it names all that is called;
/// empty, the whole network. An element that stands in a structure more than once is meant at all of these places. The
/// elements are counted; a path to what the network no longer holds names nothing.
using dgElementPath = std::vector<dgRef<dgGraphicalElement>>;
