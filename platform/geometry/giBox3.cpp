#include "giBox3.h"

#include "giXform3.h"

void giBox3::merge(const giBox3& box)
{
    if (box.empty())
        return;
    merge(box.m_low);
    merge(box.m_high);
}

void giBox3::grow(double offset)
{
    if (empty())
        return;
    const giVector3 step(offset, offset, offset);
    m_low -= step;
    m_high += step;
}

giBox3 giBox3::transform(const giXform3& xform) const
{
    giBox3 result;
    if (empty())
        return result;
    for (int number = 0; number < 8; ++number)
        result.merge(corner(number) * xform);
    return result;
}
