// The stream operators of all geometry types.
#include "giAngle.h"
#include "giBox2.h"
#include "giBox3.h"
#include "giPlane.h"
#include "giTriBlock.h"
#include "giTriangle.h"
#include "giWorkplane3.h"
#include "giXform3.h"

#include <ostream>

namespace
{
template <class T>
std::ostream& print_pair(std::ostream& os, const T& v)
{
    return os << '(' << v.x() << ", " << v.y() << ')';
}

template <class T>
std::ostream& print_triple(std::ostream& os, const T& v)
{
    return os << '(' << v.x() << ", " << v.y() << ", " << v.z() << ')';
}

template <class T>
std::ostream& print_box(std::ostream& os, const T& box)
{
    if (box.empty())
        return os << "[empty]";
    return os << '[' << box.low() << ", " << box.high() << ']';
}
}

std::ostream& operator<<(std::ostream& os, giAngle a)
{
    return os << a.radians();
}

std::ostream& operator<<(std::ostream& os, const giVector2& v)
{
    return print_pair(os, v);
}

std::ostream& operator<<(std::ostream& os, const giVector3& v)
{
    return print_triple(os, v);
}

std::ostream& operator<<(std::ostream& os, const giPoint2& p)
{
    return print_pair(os, p);
}

std::ostream& operator<<(std::ostream& os, const giPoint3& p)
{
    return print_triple(os, p);
}

std::ostream& operator<<(std::ostream& os, const giTriangle& triangle)
{
    return os << '(' << triangle[0] << ", " << triangle[1] << ", " << triangle[2] << ')';
}

std::ostream& operator<<(std::ostream& os, const giBox2& box)
{
    return print_box(os, box);
}

std::ostream& operator<<(std::ostream& os, const giBox3& box)
{
    return print_box(os, box);
}

std::ostream& operator<<(std::ostream& os, const giPlane& plane)
{
    return os << plane.point() << " normal " << plane.normal();
}

std::ostream& operator<<(std::ostream& os, const giWorkplane3& workplane)
{
    return os << workplane.origin() << " x " << workplane.x_axis() << " y " << workplane.y_axis();
}

std::ostream& operator<<(std::ostream& os, const giXform3& xform)
{
    for (int row = 0; row < 4; ++row)
        os << xform(row, 0) << ' ' << xform(row, 1) << ' ' << xform(row, 2) << ' ' << xform(row, 3) << '\n';
    return os;
}

std::ostream& operator<<(std::ostream& os, const giTriBlock& block)
{
    os << block.node_count() << " nodes, " << block.triangle_count() << " triangles";
    if (block.normals())
        os << ", normals";
    if (block.curvatures())
        os << ", curvatures";
    if (block.texture_coordinates())
        os << ", texture coordinates";
    return os << ", " << block.box();
}
