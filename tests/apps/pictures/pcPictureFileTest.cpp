#include "pcPictureFile.h"

#include "dgImage.h"
#include "tsFolder.h"

#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>

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
    EXPECT_EQ(pc_write_png(folder / "no/p.png", image, error), 0);
    EXPECT_NE(error.find("no/p.png"), std::string::npos);
}
