#pragma once

#include "giBox3.h"

class dgStructure;

/// The box of all primitives of a network, each under its own transform. Looks only into what reaches beyond the rest.
/// No bounds below root may be vague.
giBox3 dg_network_box(const dgStructure& root);
