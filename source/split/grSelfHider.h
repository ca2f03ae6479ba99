#pragma once

class giTriBlock;

/// How steep a triangle is counts as vertical: the z of a unit normal, about 0.06 degrees.
inline constexpr double gr_vertical_normal_z = 1e-3;

/// True when triangles that face up along z and others that face down overlap, seen along z, by more than a millionth
/// of the block's size.
bool gr_hides_itself(const giTriBlock& block);

/// The number of triangles that face neither up nor down along z.
int gr_count_vertical(const giTriBlock& block);
