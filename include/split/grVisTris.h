#pragma once

#include "grBlockIdx.h"
#include "grExport.h"

class dgWidgetWindow;
class giTriBlock;
class giVector3;
struct dgImage;

/// Finds the triangles of a block that are seen, from identifier images of single triangles.
///
/// A triangle has two identifiers, its number divided by a group size and the remainder, and is drawn in one image for
/// each: so a million triangles need a thousand colours and drawing calls an image.
class GR_EXPORT grVisTris
{
public:
    /// Adds the numbers of the triangles that cover at least one pixel seen from the upper side, where the direction
    /// points to, and from the lower side. The window is given another size; image_size is the longer side of the
    /// images in pixels, 0 for 1024. Returns 1. Returns 0, and nothing is added, for a direction without
    /// length, a block that is empty or has coordinates that are no finite numbers, and a window that is null or cannot
    /// be given the size of the images.
    static int find_vis_tris(dgWidgetWindow* window, const giTriBlock& block, const giVector3& direction,
                             int image_size, grBlockIdx& upper, grBlockIdx& lower);
    /// Adds the triangles that an image pair shows: one of the numbers divided by the group size, and one of the
    /// remainders. Both have the same size.
    static void find_in_image(const dgImage& quotients, const dgImage& remainders, int group_size,
                              grBlockIdx& triangles);
};
