#include "gsTriUtils.h"

#include "giAngle.h"
#include "giPlane.h"
#include "gsTriEdge.h"

#include <cmath>
#include <cstddef>

void gsTriUtils::remove(const intcoSet& indices, std::vector<giTriangle>& triangles)
{
    std::size_t kept = 0;
    for (std::size_t i = 0; i < triangles.size(); ++i)
        if (!indices.contains(static_cast<int>(i)))
            triangles[kept++] = triangles[i];
    triangles.resize(kept);
}

void gsTriUtils::remove_unused_nodes(std::vector<giTriangle>& triangles, giBoxArrPoint3& nodes, intintcoTable& map)
{
    std::vector<int> numbers(static_cast<std::size_t>(nodes.count()), -1);
    const auto number = [&numbers](int node) -> int& { return numbers[static_cast<std::size_t>(node)]; };
    for (const giTriangle& triangle : triangles)
        for (int vertex = 0; vertex < 3; ++vertex)
            number(triangle[vertex]) = 0;
    int kept = 0;
    for (int node = 0; node < nodes.count(); ++node)
    {
        if (number(node) < 0)
            continue;
        number(node) = kept;
        map.set(node, kept);
        nodes.set(kept++, nodes[node]);
    }
    nodes.truncate(kept);
    for (giTriangle& triangle : triangles)
        for (int vertex = 0; vertex < 3; ++vertex)
            triangle[vertex] = number(triangle[vertex]);
}

int gsTriUtils::edge_number(const giTriangle& triangle, const gsTriEdge& edge)
{
    for (int k = 0; k < 3; ++k)
        if (gsTriEdge(triangle.edge_start(k), triangle.edge_end(k)) == edge)
            return k;
    return -1;
}

void gsTriUtils::renumber(giTriangle& out, const giTriangle& triangle, int k)
{
    out = giTriangle(triangle[k], triangle[(k + 1) % 3], triangle[(k + 2) % 3]);
}

void gsTriUtils::intersect(const giPoint3& p, const giPoint3& q, const giPlane& plane, double distance_tolerance,
                           const giAngle& angular_tolerance, int& status, double& t, giPoint3& point)
{
    status = 0;
    const double from = plane.distance(p), to = plane.distance(q);
    const double length = p.distance(q);
    // Written so that a NaN anywhere leaves the status 0.
    if (!(std::abs(to - from) > angular_tolerance.sin() * length))
        return;
    const double parameter = from / (from - to);
    if (!(parameter * length >= -distance_tolerance && (parameter - 1) * length <= distance_tolerance))
        return;
    status = 1;
    t = parameter;
    point = giPoint3::interpolate(p, q, parameter);
}
