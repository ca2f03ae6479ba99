#include "gr_draw_sphere.h"

#include "dgClientStructure.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgRef.h"
#include "giPoint3.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

namespace
{
const giPoint3 centre(4, 5, 6);
constexpr double radius = 2;
const gsColour green(0, 1, 0), yellow(1, 1, 0);
}

// Two colours, each before its lines, which are closed circles through points of the sphere: four through the poles, at
// 0, 45, 90 and 135 degrees east, and three along parallels, at 45 degrees south, on the equator and at 45 degrees
// north.
TEST(gr_draw_sphere, appends_closed_lines_on_the_sphere_in_two_colours)
{
    const dgRef<dgClientStructure> structure(new dgClientStructure);
    gr_draw_sphere(*structure, centre, radius, 40, green, yellow);
    ASSERT_EQ(structure->nelements(), 9);
    for (int i = 0; i < 9; ++i)
    {
        if (i == 0 || i == 5)
        {
            EXPECT_EQ(dgColourAttribute::ut_dynamic_cast(structure->element(i))->colour(), i ? yellow : green);
            continue;
        }
        ASSERT_EQ(structure->element(i)->type(), dgTYPE_POLYLINE);
        const auto& line = static_cast<const dgPolyline&>(*structure->element(i));
        ASSERT_EQ(line.count(), 41);
        const double turn = std::atan(1.0) * (i < 5 ? i - 1 : i - 7), along = std::cos(turn), beside = std::sin(turn);
        for (int k = 0; k <= 40; ++k)
        {
            const double angle = k % 40 * std::atan(1.0) / 5, c = std::cos(angle), s = std::sin(angle);
            const giVector3 expected =
                i < 5 ? giVector3(c * along, c * beside, s) : giVector3(c * along, s * along, beside);
            EXPECT_NEAR(line.point(k).distance(centre + expected * radius), 0, 1e-12) << i << " " << k;
        }
    }
}
