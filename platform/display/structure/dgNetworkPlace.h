#pragma once

#include <vector>

/// Where a walk through a network stands: the number of what it has met last in each structure that is under way, the
/// outermost one first. Means nothing once the network was edited.
using dgNetworkPlace = std::vector<int>;
