#include "giBoxArrPoint3.h"

#include "giXform3.h"

void giBoxArrPoint3::set(int index, const giPoint3& p)
{
    const auto position = static_cast<std::size_t>(index);
    if (position >= m_points.size())
        m_points.resize(position + 1);
    m_points[position] = p;
    m_box_known = false;
}

void giBoxArrPoint3::append(const giPoint3& p)
{
    m_points.push_back(p);
    m_box_known = false;
}

void giBoxArrPoint3::truncate(int new_count)
{
    if (new_count >= count())
        return;
    m_points.resize(static_cast<std::size_t>(new_count));
    m_box_known = false;
}

void giBoxArrPoint3::transform(const giXform3& xform)
{
    for (giPoint3& p : m_points)
        p = p * xform;
    m_box_known = false;
}

const giBox3& giBoxArrPoint3::box() const
{
    if (!m_box_known)
    {
        giBox3 fresh;
        for (const giPoint3& p : m_points)
            fresh.merge(p);
        m_box = fresh;
        m_box_known = true;
    }
    return m_box;
}
