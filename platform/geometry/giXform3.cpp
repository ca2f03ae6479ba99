#include "giXform3.h"

#include <Eigen/Core>
#include <Eigen/LU>

#include <cmath>

namespace
{
using Matrix4 = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;

int all_finite(const double* elements)
{
    for (int i = 0; i < 16; ++i)
        if (!std::isfinite(elements[i]))
            return 0;
    return 1;
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
    return Eigen::Map<const Matrix4>(data()).determinant();
}

giXform3 giXform3::inverse() const
{
    if (is_identity())
        return *this;

    giXform3 result;
    if (m_kind == giXFORM_PROJECTIVE)
    {
        Eigen::Map<Matrix4>(result.m_elements[0]) = Eigen::Map<const Matrix4>(data()).inverse();
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
