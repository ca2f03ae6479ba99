#pragma once

#include "dg_openglExport.h"

#include <iosfwd>

struct dgImage;

/// Writes an image to a binary stream as a PNG file: its colours, and with alpha 1 its alpha, which multiplies none of
/// them. Answers 0 where the image has no pixels or the stream fails.
DG_OPENGL_EXPORT int dg_write_png(std::ostream& stream, const dgImage& image, int alpha = 0);
