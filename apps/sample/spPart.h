#pragma once

#include "giTriBlock.h"

#include <memory>
#include <vector>

/// Generates a machined part: a plate of 180 x 120 x 24 mm with rounded edges, a pocket with a filleted floor and a
/// bored hub in it, two bosses with blind holes, a slot, drilled holes, and four socket screws in counterbores.
///
/// Model units are millimetres, z is up, the plate stands on z = 0 with its middle at the origin. Every node has the
/// exact normal of its surface, split along sharp edges, and a texture coordinate that runs once in 50 mm. Surfaces
/// that meet share the exact positions of their common edges: the blocks together are closed and face outwards.
///
/// The blocks are, in order: plate, pocket, hub, bosses, holes, screws. The fineness is chosen so that the number of
/// triangles comes within a few per cent of the one asked for, from about 20,000 up. Equal calls give equal blocks.
std::vector<std::unique_ptr<giTriBlock>> sp_make_part(int triangles = 200000);
