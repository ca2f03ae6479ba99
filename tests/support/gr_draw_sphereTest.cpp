#include "gr_draw_sphere.h"

#include "dgClientStructure.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "giPoint3.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

namespace
{
const giPoint3 centre(4, 5, 6);
constexpr double radius = 2;
const gsColour green(0, 1, 0), yellow(1, 1, 0);
}

TEST(gr_draw_sphere, appends_closed_lines_on_the_sphere_in_two_colours)
{
    dgClientStructure structure;
    structure.reference();
    gr_draw_sphere(structure, centre, radius, 40, green, yellow);
    ASSERT_EQ(structure.nelements(), 9); // two colours, four meridians, three parallels
    int lines_of[2] = {0, 0};
    int colour = -1;
    for (int i = 0; i < structure.nelements(); ++i)
    {
        if (const auto* line_colour = dgColourAttribute::ut_dynamic_cast(structure.element(i)))
        {
            ++colour;
            EXPECT_EQ(line_colour->colour(), colour == 0 ? green : yellow);
            continue;
        }
        ASSERT_EQ(structure.element(i)->type(), dgTYPE_POLYLINE);
        const auto& line = static_cast<const dgPolyline&>(*structure.element(i));
        ASSERT_GE(colour, 0) << "a colour comes first";
        ++lines_of[colour];
        EXPECT_EQ(line.count(), 41);
        EXPECT_EQ(line.point(0), line.point(40));
        for (int k = 0; k < line.count(); ++k)
            EXPECT_NEAR(line.point(k).distance(centre), radius, 1e-12);
    }
    EXPECT_EQ(lines_of[0], 4);
    EXPECT_EQ(lines_of[1], 3);

    // Poles and equator are reached.
    const giBox3& box = structure.bounding_box();
    EXPECT_TRUE(box.low().coincident(giPoint3(2, 3, 4), 1e-12)) << box.low();
    EXPECT_TRUE(box.high().coincident(giPoint3(6, 7, 8), 1e-12)) << box.high();
}
