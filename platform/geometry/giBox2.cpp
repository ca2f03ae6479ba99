#include "giBox2.h"

giBox2 giBox2::intersection(const giBox2& box) const
{
    if (!overlap(box))
        return giBox2();
    return giBox2(std::max(m_low.x(), box.m_low.x()), std::max(m_low.y(), box.m_low.y()),
                  std::min(m_high.x(), box.m_high.x()), std::min(m_high.y(), box.m_high.y()));
}

void giBox2::merge(const giBox2& box)
{
    if (box.empty())
        return;
    merge(box.m_low);
    merge(box.m_high);
}

void giBox2::grow(double offset)
{
    if (empty())
        return;
    const giVector2 step(offset, offset);
    m_low -= step;
    m_high += step;
}
