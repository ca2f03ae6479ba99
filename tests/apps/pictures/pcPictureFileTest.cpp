#include "pcPictureFile.h"

#include "dgImage.h"
#include "dg_write_png.h"
#include "tsFolder.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <sstream>

TEST(pcPictureFile, the_upper_row_of_an_image_is_the_first_of_the_file)
{
    const tsFolder folder;
    dgImage image;
    image.width = 2;
    image.height = 2;
    image.rgba = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0}; // from the bottom up
    std::string error;
    ASSERT_EQ(pc_write_png(folder / "p.png", image, error), 1) << error;

    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&png, (folder / "p.png").c_str())) << png.message;
    png.format = PNG_FORMAT_RGB;
    unsigned char rgb[12] = {};
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, rgb, 0, nullptr)) << png.message;
    const unsigned char expected[12] = {7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(std::equal(std::begin(rgb), std::end(rgb), expected));

    image.rgba[3] = 40; // the first pixel of the lower row
    std::stringstream stream;
    ASSERT_EQ(dg_write_png(stream, image, 1), 1);
    const std::string bytes = stream.str();
    ASSERT_TRUE(png_image_begin_read_from_memory(&png, bytes.data(), bytes.size())) << png.message;
    png.format = PNG_FORMAT_RGBA;
    unsigned char rgba[16] = {};
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, rgba, 0, nullptr)) << png.message;
    EXPECT_EQ(rgba[8], 1);
    EXPECT_EQ(rgba[11], 40);

    stream.setstate(std::ios::badbit);
    EXPECT_EQ(dg_write_png(stream, image), 0);
    EXPECT_EQ(dg_write_png(stream, dgImage()), 0) << "no pixels";
    EXPECT_EQ(pc_write_png(folder / "no/p.png", image, error), 0);
    EXPECT_NE(error.find("no/p.png"), std::string::npos);
}
