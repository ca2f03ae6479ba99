// Fails unless every PNG file named shows something and, where there are several, not all show the same.

#include "pictureFault.h"

#include <png.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace
{
struct Picture
{
    std::size_t width = 0;
    std::vector<std::uint32_t> pixels; // row by row, 8-bit RGBA in one word
    std::string error;                 // why the file could not be read; empty when it was

    bool operator==(const Picture&) const = default;
};

Picture read_picture(const char* path)
{
    Picture picture;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path))
    {
        image.format = PNG_FORMAT_RGBA;
        picture.width = image.width;
        picture.pixels.resize(std::size_t(image.width) * image.height);
        if (png_image_finish_read(&image, nullptr, picture.pixels.data(), 0, nullptr))
            return picture;
    }
    picture.error = image.message;
    return picture;
}
}

int main(int argc, char** argv)
{
    if (argc < 2 || !std::strcmp(argv[1], "--help"))
    {
        std::fprintf(argc < 2 ? stderr : stdout, "usage: gr-picture-check FILE...\n"
                                                 "Fails when a PNG file cannot be read or is blank, or when all of "
                                                 "several show the same.\n");
        return argc < 2 ? 2 : 0;
    }

    int faults = 0;
    bool all_same = argc > 2;
    const Picture first = read_picture(argv[1]);
    for (int i = 1; i < argc; ++i)
    {
        const Picture picture = read_picture(argv[i]);
        const std::string fault = picture.error.empty() ? picture_fault(picture.width, picture.pixels) : picture.error;
        if (!fault.empty())
        {
            std::fprintf(stderr, "gr-picture-check: %s: %s\n", argv[i], fault.c_str());
            ++faults;
        }
        all_same = all_same && picture == first;
    }
    if (all_same)
    {
        std::fprintf(stderr, "gr-picture-check: all %d pictures show the same\n", argc - 1);
        ++faults;
    }
    if (!faults)
        std::printf("gr-picture-check: %d pictures, none blank\n", argc - 1);
    return faults ? 1 : 0;
}
