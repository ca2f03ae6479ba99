#pragma once

#include <string>
#include <vector>

/// Reads numbers parted by commas, as in "0,0,1,2.5". Answers 1 when there are just so many and all are finite.
int tn_read_numbers(const std::string& text, std::size_t count, std::vector<double>& numbers);
