#include "giXform3.h"

#include <cmath>

namespace
{
// The parts that the determinant and the inverse of a matrix are made of, from its rows as vectors and its last column:
// E. Lengyel, Foundations of Game Engine Development, volume 1, section 1.7.5, there for columns.
struct Parts
{
    giVector3 a, b, c, d; // rows 0 to 3
    double x, y, z, w;    // of the last column
    giVector3 s, t, u, v;

    explicit Parts(const double* m)
        : a(m[0], m[1], m[2]), b(m[4], m[5], m[6]), c(m[8], m[9], m[10]), d(m[12], m[13], m[14]), x(m[3]), y(m[7]),
          z(m[11]), w(m[15]), s(a.cross(b)), t(c.cross(d)), u(a * y - b * x), v(c * w - d * z)
    {}
    double determinant() const { return s.dot(v) + t.dot(u); }
};

bool all_finite(const double* elements)
{
    for (int i = 0; i < 16; ++i)
        if (!std::isfinite(elements[i]))
            return false;
    return true;
}
}

giXform3::giXform3(const double (&elements)[16])
{
    for (int i = 0; i < 16; ++i)
        m_elements[i / 4][i % 4] = elements[i];
    find_kind();
}

void giXform3::element(int row, int column, double value)
{
    m_elements[row][column] = value;
    find_kind();
}

double giXform3::determinant() const
{
    return Parts(data()).determinant();
}

giXform3 giXform3::inverse() const
{
    if (is_identity())
        return *this;

    giXform3 result;
    if (m_kind == giXFORM_PROJECTIVE)
    {
        const Parts p(data());
        const double factor = 1 / p.determinant();
        const giVector3 s = p.s * factor, t = p.t * factor, u = p.u * factor, v = p.v * factor;
        const giVector3 columns[4] = {p.b.cross(v) + t * p.y, v.cross(p.a) - t * p.x, p.d.cross(u) + s * p.w,
                                      u.cross(p.c) - s * p.z};
        for (int row = 0; row < 3; ++row)
            result.set_row(row, columns[0][row], columns[1][row], columns[2][row], columns[3][row]);
        result.set_row(3, -p.b.dot(t), p.a.dot(t), -p.d.dot(s), p.c.dot(s));
    }
    else
    {
        // Cofactors rather than the transpose: a rotation that was composed many times is no longer exactly rigid.
        const giVector3 x(m_elements[0][0], m_elements[0][1], m_elements[0][2]);
        const giVector3 y(m_elements[1][0], m_elements[1][1], m_elements[1][2]);
        const giVector3 z(m_elements[2][0], m_elements[2][1], m_elements[2][2]);
        const giVector3 yz = y.cross(z);
        const double factor = 1 / x.dot(yz);
        const giVector3 columns[3] = {yz * factor, z.cross(x) * factor, x.cross(y) * factor};
        for (int row = 0; row < 3; ++row)
            result.set_row(row, columns[0][row], columns[1][row], columns[2][row], 0);
        const giVector3 move = result.transform(giVector3(m_elements[3][0], m_elements[3][1], m_elements[3][2]));
        result.set_row(3, -move.x(), -move.y(), -move.z(), 1);
    }
    if (!all_finite(result.data()))
        return giXform3();
    result.m_kind = m_kind;
    return result;
}

void giXform3::find_kind()
{
    const bool affine =
        m_elements[0][3] == 0 && m_elements[1][3] == 0 && m_elements[2][3] == 0 && m_elements[3][3] == 1;
    m_kind = !affine ? giXFORM_PROJECTIVE : *this == giXform3() ? giXFORM_IDENTITY : giXFORM_AFFINE;
}
