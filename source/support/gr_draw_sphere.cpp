#include "gr_draw_sphere.h"

#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgStructure.h"
#include "giPoint3.h"
#include "giVector3.h"

#include <cmath>
#include <numbers>
#include <vector>

namespace
{
constexpr double pi = std::numbers::pi;
constexpr int n_meridians = 4;

void add_circle(dgStructure& structure, const giPoint3& centre, const giVector3& u, const giVector3& v, int segments)
{
    std::vector<giPoint3> points;
    points.reserve(static_cast<std::size_t>(segments) + 1);
    for (int i = 0; i < segments; ++i)
    {
        const double angle = 2 * pi * i / segments;
        points.push_back(centre + u * std::cos(angle) + v * std::sin(angle));
    }
    points.push_back(points.front());
    structure.add(new dgPolyline(std::move(points)));
}
}

void gr_draw_sphere(dgStructure& structure, const giPoint3& centre, double radius, int segments, const gsColour& first,
                    const gsColour& second)
{
    structure.add(new dgLineColour(first));
    for (int i = 0; i < n_meridians; ++i)
    {
        const double longitude = pi * i / n_meridians;
        const giVector3 outwards(radius * std::cos(longitude), radius * std::sin(longitude), 0);
        add_circle(structure, centre, outwards, giVector3(0, 0, radius), segments);
    }
    structure.add(new dgLineColour(second));
    for (int i = -1; i <= 1; ++i)
    {
        const double latitude = 0.25 * pi * i;
        const double r = radius * std::cos(latitude);
        const giPoint3 middle = centre + giVector3(0, 0, radius * std::sin(latitude));
        add_circle(structure, middle, giVector3(r, 0, 0), giVector3(0, r, 0), segments);
    }
}
