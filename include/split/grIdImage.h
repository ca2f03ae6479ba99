#pragma once

#include "giBox3.h"
#include "giTriBlockcoDList.h"
#include "grExport.h"
#include "grIdImageSense.h"
#include "grPixelCount.h"

#include <memory>
#include <vector>

class dgWidgetWindow;
struct dgImage;

/// Draws triangle blocks into identifier images: every block in a flat colour that stands for its number (see grSplit),
/// on white. Colours are exact: nothing is lit, blended or smoothed.
///
/// Images are seen along z. A box is drawn as large as the image size allows, with square pixels; the image has just
/// the pixels of the box.
class GR_EXPORT grIdImage
{
public:
    grIdImage();
    ~grIdImage();
    grIdImage(const grIdImage&) = delete;
    grIdImage& operator=(const grIdImage&) = delete;

    /// Takes the window, which is given that size in pixels, and the blocks, whose number is their place in the list.
    /// Neither is owned; both must outlive this, and the blocks must not change. Returns 0, and nothing can be drawn,
    /// for a size below 1 or one that the window cannot be given, an empty or endless model box, or more blocks than
    /// there are colours.
    int initialize(dgWidgetWindow* window, int width, int height, const giTriBlockcoDList& blocks,
                   const giBox3& model_box);

    /// The largest size of an image in pixels.
    void image_size(int& width, int& height) const;
    const giBox3& model_bounding_box() const { return the_model_box; }

    /// Sets the size in pixels that the image of a box has: 1 at least, and 0 for a box without width and height.
    /// reduction here and below makes images that many times smaller.
    void size_of_box(const giBox3& box, int& width, int& height, int reduction = 1) const;
    /// Draws the blocks with these numbers and reads the image of a box back. It is good until the next call, and empty
    /// for a box without width and height.
    const dgImage& make_image(const giBox3& box, const std::vector<int>& blocks, grIdImageSense sense,
                              int reduction = 1);

    /// Adds the pixels of each block to its count; counts is made to have one for each block.
    void count_pixels(const dgImage& image, grPixelCountcoDynArr& counts) const;
    /// Adds, in the same way, to the count of each block with these numbers the pixels that it has when drawn alone in
    /// the image of a box. Only the part of the image that a block's own box can cover is drawn and read, of many
    /// blocks at once.
    void count_alone(const giBox3& box, const std::vector<int>& blocks, grIdImageSense sense,
                     grPixelCountcoDynArr& counts);

private:
    class Canvas;
    giBox3 the_model_box;
    std::unique_ptr<Canvas> the_canvas;
};
