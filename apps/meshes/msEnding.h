#pragma once

#include <string>

/// The ending of a name in small letters, without the dot.
std::string ms_ending(const std::string& file);
