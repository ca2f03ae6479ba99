#pragma once

#include "grExport.h"

#include <iosfwd>

class giTriBlock;

/// Writes blocks as a "tarn" text file, from which gr_read_tarn_tblock reads every number back exactly.
///
/// Numbers are printed in the shortest form that gives the same double again, with "." in every locale. A block with
/// normals is written in vector mode 1, any other in mode 0 with its curvature pairs. The format has no block without
/// vector values: one with neither gets the curvature pairs "none" (the largest double, 0), and curvature pairs beside
/// normals are left out. Texture coordinates are flagged when present.
///
/// Returns the number of blocks written. That is 0, before anything is written, when count is below 1, a block is
/// null, has an optional array shorter than its nodes, a triangle naming a node it does not have, or a number that is
/// not finite; and 0 when the stream fails, which may leave part of the file.
GR_EXPORT int gr_write_tarn_tblock(std::ostream& stream, const giTriBlock* const* blocks, int count);
