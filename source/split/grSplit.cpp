#include "grSplit.h"

#include "grPixels.h"

#include "gsTarnImageCoder.h"

void grSplit::index_to_rgb(int index, unsigned short& red, unsigned short& green, unsigned short& blue)
{
    red = static_cast<unsigned short>(index & 255);
    green = static_cast<unsigned short>(index >> 8 & 255);
    blue = static_cast<unsigned short>(index >> 16 & 255);
}

void grSplit::index_to_rgb(int index, double& red, double& green, double& blue)
{
    unsigned short channels[3];
    index_to_rgb(index, channels[0], channels[1], channels[2]);
    red = channels[0] / 255.0;
    green = channels[1] / 255.0;
    blue = channels[2] / 255.0;
}

int grSplit::rgb_to_index(int red, int green, int blue)
{
    return red | green << 8 | blue << 16;
}

int grSplit::max_index()
{
    static const int index = static_cast<int>(~gsTarnImageCoder::the_alpha_255);
    return index;
}

int grSplit::get_pixel(const dgImage& image, int x, int y)
{
    return static_cast<int>(gr_pixel_index(image.pixel(x, y)));
}

void grSplit::scan_image(const dgImage& image, grBlockIdx& indices)
{
    gr_for_each_run(image,
                    [&indices](int index, int)
                    {
                        if (index != max_index())
                            indices.add(index);
                    });
}
