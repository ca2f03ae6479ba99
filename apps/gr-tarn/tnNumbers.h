#pragma once

#include "giVector3.h"

#include <string>
#include <vector>

/// Reads numbers parted by commas, as in "0,0,1,2.5". Answers 1 when there are just so many and all are finite.
int tn_read_numbers(const std::string& text, std::size_t count, std::vector<double>& numbers);

/// The unit vector along x, y, z, however large or small they are. size becomes the largest of them, without its sign;
/// a size of 0 means that there is no direction.
giVector3 tn_direction(const std::vector<double>& xyz, double& size);
