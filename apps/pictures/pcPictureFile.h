#pragma once

#include <string>

struct dgImage;

/// Writes an image as a PNG file: its colours, and with alpha 1 its alpha, which multiplies none of them. Answers 1, or
/// 0 with error set.
int pc_write_png(const std::string& path, const dgImage& image, std::string& error, int alpha = 0);
