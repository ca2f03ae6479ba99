#include "dgAttributeArray.h"
#include "dgBackSurfaceColour.h"
#include "dgInteriorStyle.h"
#include "dgLabel.h"
#include "dgLighting.h"
#include "dgLineColour.h"
#include "dgLineStyle.h"
#include "dgLineWidth.h"
#include "dgMarkerColour.h"
#include "dgMarkerSize.h"
#include "dgRef.h"
#include "dgSerr.h"
#include "dgSurfaceColour.h"
#include "dgTextAlignment.h"
#include "dgTextColour.h"
#include "dgTextDirection.h"
#include "dgTextFontSlot.h"
#include "dgTextHeight.h"
#include "dgTextSpacing.h"
#include "dgTextWidthFactor.h"
#include "dgTransform.h"
#include "dgView.h"
#include "dgWorldTransform.h"
#include "gsColour.h"
#include "gsHeap.h"
#include "gsRGB.h"

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

namespace
{
int the_last_code = 0;

void note_code(int code)
{
    the_last_code = code;
}

struct HandlerGuard
{
    HandlerGuard() : before(dgSerr_handler(note_code)) { the_last_code = 0; }
    ~HandlerGuard() { dgSerr_handler(before); }
    dgSerrHandler before;
};

class CountedLabel : public dgLabel
{
public:
    explicit CountedLabel(int& destroyed) : dgLabel(1), the_destroyed(destroyed) {}
    ~CountedLabel() override { ++the_destroyed; }

private:
    int& the_destroyed;
};
}

TEST(dgBase, is_destroyed_when_the_last_holder_lets_go)
{
    const HandlerGuard guard;
    int destroyed = 0;
    {
        const dgRef<dgLabel> first(new CountedLabel(destroyed));
        dgRef<dgLabel> second = first;
        second = dgRef<dgLabel>(second.get()); // onto itself
        EXPECT_EQ(first->reference_count(), 2);
        dgRef<dgLabel> moved = std::move(second);
        EXPECT_EQ(first->reference_count(), 2);
        EXPECT_FALSE(second);
    }
    EXPECT_EQ(destroyed, 1);
    EXPECT_EQ(the_last_code, 0);
}

TEST(dgBase, reports_a_count_below_zero_and_destroys_all_the_same)
{
    int destroyed = 0;
    testing::internal::CaptureStderr();
    (new CountedLabel(destroyed))->unreference();
    EXPECT_EQ(testing::internal::GetCapturedStderr() + std::to_string(destroyed), "Display structure error 110\n1");
}

TEST(dgSerr, calls_the_handler_that_was_set_last)
{
    const HandlerGuard guard;
    int seen = 0;
    const auto add_code = [](int code, void* data) { *static_cast<int*>(data) += code; };
    dgSerr_handler(add_code, &seen);
    dgSerr(7);
    EXPECT_EQ(dgSerr_handler(note_code), note_code);
    dgSerr(8);
    EXPECT_EQ(std::pair(seen, the_last_code), std::pair(7, 8));
    dgSerr_handler(add_code, &seen);
    dgSerr_handler(nullptr, nullptr);
    EXPECT_NE(dgSerr_handler(nullptr), note_code) << "the default is back";
}

TEST(dgGraphicalAttribute, equals_one_of_its_type_and_value_alone)
{
    const giXform3 place = giXform3::translation({1, 0, 0});
    const giVector3 x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    using Attribute = dgRef<dgGraphicalAttribute>;
    const std::function<Attribute()> makers[] = {
        [&] { return new dgTransform(place); },
        [] { return new dgTransform(giXform3()); },
        [&] { return new dgWorldTransform(place); },
        [] { return new dgWorldTransform(giXform3()); },
        [&] { return new dgTextDirection(x, y); },
        [&] { return new dgTextDirection(x, z); },
        [&] { return new dgTextDirection(z, y); },
        [] { return new dgTextAlignment(dgTEXT_LEFT, dgTEXT_TOP); },
        [] { return new dgTextAlignment(dgTEXT_LEFT, dgTEXT_MIDDLE); },
        [] { return new dgTextAlignment(dgTEXT_RIGHT, dgTEXT_TOP); },
        [] { return new dgTextHeight(2); },
        [] { return new dgTextHeight(3); },
    };
    for (const auto& make : makers)
        for (const auto& other : makers)
            EXPECT_EQ(make()->equal(*other()), &make == &other) << &make - makers << ' ' << &other - makers;
    for (const giVector3& no_plane : {giVector3(), z * -2})
        EXPECT_TRUE(makers[4]()->equal(*Attribute(new dgTextDirection(no_plane, z)))) << "the default stays";
}

TEST(dgAttributeArray, holds_the_defaults)
{
    const dgAttributeArray defaults;
    const dgRef<dgGraphicalAttribute> expected[] = {new dgLineColour(gsColour(1, 1, 1)),
                                                    new dgLineWidth(1),
                                                    new dgTextHeight(1),
                                                    new dgTextWidthFactor(1),
                                                    new dgTextSpacing(0),
                                                    new dgTextDirection({1, 0, 0}, {0, 1, 0}),
                                                    new dgTextAlignment(dgTEXT_LEFT, dgTEXT_BASELINE),
                                                    new dgTextColour(gsColour(1, 1, 1)),
                                                    new dgLineStyle(0),
                                                    new dgTextFontSlot(0),
                                                    new dgMarkerColour(gsColour(1, 1, 1)),
                                                    new dgMarkerSize(1),
                                                    new dgInteriorStyle(1),
                                                    new dgSurfaceColour(gsColour(0.8, 0.8, 0.8)),
                                                    new dgBackSurfaceColour(gsColour(0.8, 0.8, 0.8)),
                                                    new dgLighting(1)};
    for (const auto& attribute : expected)
        EXPECT_TRUE(defaults.query(attribute->type()) && defaults.query(attribute->type())->equal(*attribute))
            << attribute->type();
}

TEST(gsColour, rounds_and_clamps_to_8_bits)
{
    gsRGB rgb;
    gsColour(-0.5, 0.5, 1.5).rgb(rgb);
    EXPECT_EQ(rgb, (gsRGB{0, 128, 255}));
    gsColour(0.49 / 255, 0.51 / 255, 254.4 / 255).rgb(rgb);
    EXPECT_EQ(rgb, (gsRGB{0, 1, 254}));
    EXPECT_EQ(gsColour(gsRGB{51, 102, 255}), gsColour(0.2, 0.4, 1));
}

TEST(gsColour, compares_indices_only_with_indices)
{
    gsColour index = gsColour::from_index(3);
    gsColour same = index;
    same.red(0.1);
    EXPECT_EQ(index, same);
    EXPECT_FALSE(index == gsColour());
    index.set_rgb(1, 1, 1);
    EXPECT_EQ(index, gsColour());
}

TEST(gsHeap, reports_the_objects_that_live_by_class)
{
    std::make_unique<dgView>().reset();
    const dgView first, second;
    std::ostringstream report;
    gsHeap::print(report);
    EXPECT_EQ(report.str(), "2 live objects\n  dgView 2\n");
}
