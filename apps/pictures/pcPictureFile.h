#pragma once

#include <string>

struct dgImage;

/// Writes the colours of an image as a PNG file, alpha left out. Answers 1, or 0 with error set.
int pc_write_png(const std::string& path, const dgImage& image, std::string& error);
