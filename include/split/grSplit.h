#pragma once

#include "grBlockIdx.h"
#include "grExport.h"

struct dgImage;

/// Identifiers as colours: red holds bits 0 to 7 of an index, green 8 to 15, blue 16 to 23.
class GR_EXPORT grSplit
{
public:
    /// The colour that an index is drawn in, 0 to 255 a channel.
    static void index_to_rgb(int index, unsigned short& red, unsigned short& green, unsigned short& blue);
    /// The same from 0 to 1.
    static void index_to_rgb(int index, double& red, double& green, double& blue);
    /// The index that channels from 0 to 255 stand for.
    static int rgb_to_index(int red, int green, int blue);
    /// 0xFFFFFF: the index of the white background, which no block has.
    static int max_index();

    /// The index at a pixel, which must be inside the image.
    static int get_pixel(const dgImage& image, int x, int y);
    /// Adds the indices that an image shows, without the background.
    static void scan_image(const dgImage& image, grBlockIdx& indices);
};
