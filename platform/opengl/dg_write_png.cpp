#include "dg_write_png.h"

#include "dgImage.h"

#include <png.h>

#include <cstddef>
#include <ostream>

int dg_write_png(std::ostream& stream, const dgImage& image, int alpha)
{
    std::vector<unsigned char> rgb;
    if (!alpha)
        rgb.reserve(static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 3);
    for (std::size_t i = 0; i + 3 < image.rgba.size() && !alpha; i += 4)
        rgb.insert(rgb.end(), {image.rgba[i], image.rgba[i + 1], image.rgba[i + 2]});

    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    png.flags = PNG_IMAGE_FLAG_FAST;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png);
    std::vector<char> bytes(size);
    // A negative row length tells that the first row is the lowest one.
    if (!png_image_write_to_memory(&png, bytes.data(), &size, 0, alpha ? image.rgba.data() : rgb.data(),
                                   (alpha ? -4 : -3) * image.width, nullptr))
        return 0;
    stream.write(bytes.data(), static_cast<std::streamsize>(size));
    return stream.good();
}
