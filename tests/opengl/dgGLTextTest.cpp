#include "renderScene.h"

#include "dgGLGeometryStore.h"
#include "dgLighting.h"
#include "dgText.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFont.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextSpacing.h"
#include "dgTextWidthFactor.h"
#include "dgTransform.h"
#include "giXform3.h"
#include "gsColour.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <string>

namespace
{
const Pixel black{0, 0, 0};
const Pixel white{255, 255, 255};
const Pixel red{255, 0, 0};

// Without a font, each character is a frame: from (0.08, 0) to (0.52, 0.7) of the height, 0.05 thick, 0.6 to the next.
// At a height of 100 and with pixel centres on whole numbers, its pixels from half a pixel on can be counted.
constexpr int frame_pixels = 44 * 70 - 34 * 60;
const giPoint3 start(0.5, 0.5, 0);

dgText* text(const std::string& characters, const giPoint3& position = start)
{
    return new dgText(position, characters);
}

// Lowest and highest pixels of a colour.
struct Bounds
{
    int low_x = 10000, low_y = 10000, high_x = -1, high_y = -1;
    bool operator==(const Bounds&) const = default;
};
std::ostream& operator<<(std::ostream& os, const Bounds& b)
{
    return os << b.low_x << ' ' << b.low_y << ' ' << b.high_x << ' ' << b.high_y;
}
Bounds bounds_of(const dgImage& image, const Pixel& pixel)
{
    Bounds bounds;
    for (int y = 0; y < image.height; ++y)
        for (int x = 0; x < image.width; ++x)
            if (pixel_at(image, x, y) == pixel)
            {
                bounds.low_x = std::min(bounds.low_x, x);
                bounds.low_y = std::min(bounds.low_y, y);
                bounds.high_x = std::max(bounds.high_x, x);
                bounds.high_y = std::max(bounds.high_y, y);
            }
    return bounds;
}

std::string font_file(const std::string& name)
{
    for (const char* folder : {"/usr/share/fonts/X11/Type1/", "/usr/share/fonts/truetype/dejavu/"})
        if (std::filesystem::exists(folder + name))
            return folder + name;
    ADD_FAILURE() << name << " is missing: install fonts-urw-base35 and fonts-dejavu-core";
    return {};
}

dgRef<dgTextFont> font(const std::string& name)
{
    dgRef<dgTextFont> loaded(new dgTextFont(font_file(name), utString()));
    EXPECT_EQ(loaded->load_status(), dgTEXT_FONT_LOADED);
    return loaded;
}
}

TEST(dgGLText, quality_chooses_between_letters_their_outlines_and_boxes)
{
    const struct
    {
        double quality;
        int pixels, inverted;
    } cases[] = {
        {1, frame_pixels, frame_pixels},
        {0.5, 2 * (44 + 70) + 2 * (34 + 60), frame_pixels},
        {0, 2 * (60 + 100), frame_pixels},
    };
    for (const auto& c : cases)
        for (const int inverting : {0, 1})
        {
            Scene scene(120, 160);
            dgDrawQuality quality;
            quality.text_quality_set = 1;
            quality.text_quality = c.quality;
            scene.renderer.set_in_pipeline_context(&quality);
            scene.renderer.select_driver(inverting);
            const dgRef<dgText> letter(text("A", giPoint3(20.5, 40.5, 0)));
            scene.view.begin();
            scene.view.execute(*dgRef<dgTextHeight>(new dgTextHeight(100)));
            scene.view.execute(*dgRef<dgTextColour>(new dgTextColour(gsColour(1, 0, 0))));
            scene.view.execute(*letter);
            scene.view.end();
            scene.renderer.select_driver(0);
            // Corners and the ends of lines may be drawn or not.
            EXPECT_NEAR(count_pixels(scene.picture(), red), inverting ? c.inverted : c.pixels, c.quality < 1 ? 8 : 0)
                << c.quality << ' ' << inverting;
        }
}

TEST(dgGLText, attributes_act_on_the_text_behind_them)
{
    Scene scene(400, 120);
    scene.add(new dgTextHeight(100));
    scene.add(new dgTextColour(gsColour(1, 0, 0)));
    scene.add(new dgLighting(1));
    scene.add(text("x"));
    scene.add(new dgTextColour(gsColour(1, 1, 1)));
    scene.add(new dgTextWidthFactor(2));
    scene.add(new dgTextSpacing(0.1));
    scene.add(text("xy", giPoint3(100.5, 0.5, 0)));
    scene.draw();
    const dgImage picture = scene.picture();
    EXPECT_EQ(count_pixels(picture, red), frame_pixels) << "not shaded, though there is lighting";
    // The second frame starts 0.6 * 200 + 0.1 * 100 behind the first and ends 0.52 * 200 further on.
    EXPECT_EQ(bounds_of(picture, white), (Bounds{117, 1, 334, 70}));
}

TEST(dgGLText, alignment_says_which_point_stands_at_the_position)
{
    const struct
    {
        dgTextHorizontal horizontal;
        dgTextVertical vertical;
        int move_x, move_y; // of the frames from where they are at the left and on the baseline
    } cases[] = {
        {dgTEXT_LEFT, dgTEXT_BASELINE, 0, 0},     {dgTEXT_CENTRE, dgTEXT_BASELINE, -60, 0},
        {dgTEXT_RIGHT, dgTEXT_BASELINE, -120, 0}, {dgTEXT_LEFT, dgTEXT_BOTTOM, 0, 25},
        {dgTEXT_LEFT, dgTEXT_MIDDLE, 0, -25},     {dgTEXT_RIGHT, dgTEXT_TOP, -120, -75},
    };
    for (const auto& c : cases)
    {
        Scene scene(300, 200);
        scene.add(new dgTextHeight(100));
        scene.add(new dgTextAlignment(c.horizontal, c.vertical));
        scene.add(text("xy", giPoint3(150.5, 100.5, 0)));
        scene.draw();
        EXPECT_EQ(bounds_of(scene.picture(), white),
                  (Bounds{159 + c.move_x, 101 + c.move_y, 262 + c.move_x, 170 + c.move_y}))
            << c.horizontal << ' ' << c.vertical;
    }
}

TEST(dgGLText, lines_are_aligned_one_by_one_and_lie_1_2_heights_apart)
{
    Scene scene(300, 300);
    scene.add(new dgTextHeight(100));
    scene.add(new dgTextAlignment(dgTEXT_RIGHT, dgTEXT_BASELINE));
    scene.add(text("xy\nz", giPoint3(200.5, 200.5, 0)));
    scene.draw();
    const dgImage picture = scene.picture();
    EXPECT_EQ(bounds_of(picture, white), (Bounds{89, 81, 192, 270}));
    EXPECT_EQ(pixel_at(picture, 101, 100), black) << "the second line is shorter";
    EXPECT_EQ(count_pixels(picture, white), 3 * frame_pixels);
}

TEST(dgGLText, turned_and_scaled_text_covers_the_same_as_its_shape_turned_and_scaled)
{
    // Up a quarter turn, in a plane that is half the size by its transform.
    Scene scene(200, 200);
    scene.add(new dgTransform(giXform3::scaling(0.5, giPoint3(0.5, 0.5, 0))));
    scene.add(new dgTextHeight(200));
    scene.add(new dgTextDirection(giVector3(0, 3, 0), giVector3(-1, 5, 0)));
    scene.add(text("xy", giPoint3(200.5, 0.5, 0)));
    scene.draw();
    const dgImage picture = scene.picture();
    EXPECT_EQ(count_pixels(picture, white), 2 * frame_pixels);
    EXPECT_EQ(bounds_of(picture, white), (Bounds{31, 9, 100, 112}));
}

TEST(dgGLText, the_slot_chooses_the_font)
{
    Scene scene(100, 100);
    scene.renderer.set_text_font(font("DejaVuSans.ttf").get(), 7);
    scene.add(new dgTextHeight(100));
    scene.add(new dgTextFontSlot(7));
    scene.add(text("l"));
    scene.draw();
    // The letter l of this font is a bar from 193 to 377 and 0 to 1556 units of 2048.
    const dgImage with_font = scene.picture();
    EXPECT_EQ(bounds_of(with_font, white), (Bounds{10, 1, 18, 76}));
    EXPECT_EQ(count_pixels(with_font, white), 9 * 76);

    scene.renderer.set_text_font(nullptr, 7);
    scene.draw();
    EXPECT_EQ(count_pixels(scene.picture(), white), frame_pixels) << "text without a font stays visible";
}

TEST(dgGLText, letters_cover_as_many_pixels_however_they_are_turned)
{
    // Turning changes no area by more than what rounds off along the outlines.
    const dgRef<dgTextFont> sans = font("NimbusSans-Regular.pfb");
    int straight = 0;
    for (const double angle : {0.0, 0.3, 1.1, 2.5, 4.0})
    {
        Scene scene(400, 400);
        scene.renderer.set_text_font(sans.get(), 0);
        scene.add(new dgTextHeight(90));
        scene.add(new dgTextAlignment(dgTEXT_CENTRE, dgTEXT_MIDDLE));
        scene.add(new dgTextDirection(giVector3(std::cos(angle), std::sin(angle), 0),
                                      giVector3(-std::sin(angle), std::cos(angle), 0)));
        scene.add(text("Habe8", giPoint3(200, 200, 0)));
        scene.draw();
        const int covered = count_pixels(scene.picture(), white);
        if (angle == 0)
            straight = covered;
        EXPECT_GT(covered, 4000);
        EXPECT_NEAR(covered, straight, 0.02 * straight) << angle;
    }
}

TEST(dgGLText, inverted_text_is_drawn_once_a_pixel_and_vanishes_when_drawn_again)
{
    // Letters that reach into each other: a script font set tight, at several sizes and angles.
    const dgRef<dgTextFont> script = font("Z003-MediumItalic.pfb");
    for (const double height : {9.0, 40.0, 90.0})
        for (const double angle : {0.0, 0.4})
        {
            Scene scene(400, 300);
            scene.renderer.set_text_font(script.get(), 0);
            scene.add(new dgTextHeight(height));
            scene.add(new dgTextSpacing(-0.12));
            scene.add(new dgTextDirection(giVector3(std::cos(angle), std::sin(angle), 0), giVector3(0, 1, 0)));
            scene.add(text("Raffles", giPoint3(20, 40, 0)));
            scene.draw();
            const dgImage plain = scene.picture();
            ASSERT_GT(count_pixels(plain, white), 0);

            scene.view.erase(dgERASE_ZBUFFER_YES);
            const dgImage empty = scene.picture();
            scene.renderer.select_driver(1);
            ASSERT_EQ(scene.renderer.in_xor_mode(), 1);
            const auto invert = [&]
            {
                scene.view.begin();
                scene.view.execute_structure(*scene.root);
                scene.view.end();
            };
            invert();
            // A pixel that two letters cover would be black here and white in the plain picture.
            EXPECT_TRUE(same_pictures(scene.picture(), plain)) << height << ' ' << angle;
            invert();
            EXPECT_TRUE(same_pictures(scene.picture(), empty)) << height << ' ' << angle;
        }
}

TEST(dgGLText, changed_text_is_made_again_and_unchanged_text_is_not)
{
    Scene scene(200, 100);
    auto* changing = text("x");
    scene.add(new dgTextHeight(100));
    scene.add(changing);
    scene.draw();
    EXPECT_EQ(count_pixels(scene.picture(), white), frame_pixels);
    const auto uploaded = test_device()->geometry().bytes_uploaded();
    scene.draw();
    EXPECT_EQ(test_device()->geometry().bytes_uploaded(), uploaded);
    changing->text("xy");
    scene.draw();
    EXPECT_EQ(count_pixels(scene.picture(), white), 2 * frame_pixels);
    changing->position(giPoint3(20.5, 0.5, 0));
    scene.draw();
    EXPECT_EQ(bounds_of(scene.picture(), white).low_x, 29);
    changing->text("");
    scene.draw();
    EXPECT_EQ(count_pixels(scene.picture(), white), 0);
}

TEST(dgGLText, text_that_is_gone_leaves_no_geometry)
{
    const std::size_t before = test_device()->geometry().bytes_used();
    {
        Scene scene(200, 100);
        scene.add(new dgTextHeight(20));
        scene.add(text("some words"));
        scene.draw();
        EXPECT_GT(test_device()->geometry().bytes_used(), before);
    }
    EXPECT_EQ(test_device()->geometry().bytes_used(), before);
}

TEST(dgGLText, one_text_under_two_styles_is_right_under_both)
{
    Scene scene(300, 200);
    auto* shared = text("x");
    scene.add(new dgTextHeight(100));
    scene.add(shared);
    scene.add(new dgTransform(giXform3::translation(giVector3(100, 0, 0))));
    scene.add(new dgTextWidthFactor(2));
    scene.add(shared);
    for (int i = 0; i < 2; ++i)
    {
        scene.draw();
        // Twice as wide: 88 x 70 outside, 68 x 60 inside.
        EXPECT_EQ(count_pixels(scene.picture(), white), frame_pixels + 88 * 70 - 68 * 60);
    }
}
