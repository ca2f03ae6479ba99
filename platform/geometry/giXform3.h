#pragma once

#include "giAngle.h"
#include "giExport.h"
#include "giPoint3.h"
#include "giVector3.h"
#include "gi_Axis.h"

#include <iosfwd>

/// What is known about a transform's matrix; the kind of a product is the higher of the two.
enum giXformKind
{
    giXFORM_IDENTITY = 0,  ///< does nothing, known by construction
    giXFORM_AFFINE = 1,    ///< last column (0, 0, 0, 1)
    giXFORM_PROJECTIVE = 2 ///< any matrix; points are divided by their last component
};

/// A transform of space: a 4 x 4 matrix with points as rows on its left. The identity on construction.
///
/// Rows 0 to 2 are the images of the axes, row 3 that of the origin. The product a * b applies a first, then b,
/// and p * (a * b) == (p * a) * b.
class giXform3
{
public:
    constexpr giXform3() = default;
    /// From 16 elements, row by row. The kind is found from their exact values.
    GI_EXPORT explicit giXform3(const double (&elements)[16]);

    /// Turns by the angle about the axis through the point, counter-clockwise seen against the axis (the right-hand
    /// rule). The axis may have any length; angle 0 or a null axis gives the identity kind.
    static giXform3 rotation(giAngle angle, const giVector3& axis, const giPoint3& through = giPoint3())
    {
        return rotation_about_unit(angle, axis.unit(), through);
    }
    static giXform3 rotation(giAngle angle, gi_Axis axis, const giPoint3& through = giPoint3())
    {
        return rotation_about_unit(angle, giVector3(axis == gi_X_AXIS, axis == gi_Y_AXIS, axis == gi_Z_AXIS), through);
    }
    /// As rotation, for an axis of length 1, which is not checked.
    static inline giXform3 rotation_about_unit(giAngle angle, const giVector3& unit_axis,
                                               const giPoint3& through = giPoint3());
    static inline giXform3 translation(const giVector3& offset);
    /// Scales by a factor for each axis about the point, which stays where it is.
    static inline giXform3 scaling(const giVector3& factors, const giPoint3& about = giPoint3());
    static giXform3 scaling(double factor, const giPoint3& about = giPoint3())
    {
        return scaling(giVector3(factor, factor, factor), about);
    }

    /// The element of row and column 0 to 3.
    constexpr double operator()(int row, int column) const { return m_elements[row][column]; }
    /// Sets one element; the kind is found again from the exact values of all.
    GI_EXPORT void element(int row, int column, double value);
    /// The 16 elements, row by row.
    constexpr const double* data() const { return m_elements[0]; }

    constexpr giXformKind kind() const { return m_kind; }
    /// 1 when the transform is the identity by construction: default-built, a rotation by 0, a translation by
    /// nothing, or a product of such. A product of a rotation and its inverse is not.
    constexpr int is_identity() const { return m_kind == giXFORM_IDENTITY; }

    GI_EXPORT double determinant() const;
    /// The transform that undoes this one. A singular transform has none and gives the identity.
    GI_EXPORT giXform3 inverse() const;

    /// The point through this transform, divided by its last component when the kind is projective.
    giPoint3 transform(const giPoint3& p) const
    {
        const double x = row_product(p, 0), y = row_product(p, 1), z = row_product(p, 2);
        if (m_kind != giXFORM_PROJECTIVE)
            return giPoint3(x, y, z);
        const double w = row_product(p, 3);
        return giPoint3(x / w, y / w, z / w);
    }
    /// The vector through the upper left 3 x 3 elements: turned and scaled, not moved.
    giVector3 transform(const giVector3& v) const
    {
        return giVector3(v.x() * m_elements[0][0] + v.y() * m_elements[1][0] + v.z() * m_elements[2][0],
                         v.x() * m_elements[0][1] + v.y() * m_elements[1][1] + v.z() * m_elements[2][1],
                         v.x() * m_elements[0][2] + v.y() * m_elements[1][2] + v.z() * m_elements[2][2]);
    }

    friend inline giXform3 operator*(const giXform3& first, const giXform3& second);
    giXform3& operator*=(const giXform3& second) { return *this = *this * second; }

    /// Exact equality of the elements.
    bool operator==(const giXform3& xform) const
    {
        for (int i = 0; i < 16; ++i)
            if (data()[i] != xform.data()[i])
                return false;
        return true;
    }

private:
    double row_product(const giPoint3& p, int column) const
    {
        return p.x() * m_elements[0][column] + p.y() * m_elements[1][column] + p.z() * m_elements[2][column] +
               m_elements[3][column];
    }
    void set_row(int row, double x, double y, double z, double w)
    {
        m_elements[row][0] = x;
        m_elements[row][1] = y;
        m_elements[row][2] = z;
        m_elements[row][3] = w;
    }
    void find_kind();

    double m_elements[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
    giXformKind m_kind = giXFORM_IDENTITY;
};

inline giXform3 operator*(const giXform3& first, const giXform3& second)
{
    if (first.m_kind == giXFORM_IDENTITY)
        return second;
    if (second.m_kind == giXFORM_IDENTITY)
        return first;

    giXform3 result;
    result.m_kind = first.m_kind > second.m_kind ? first.m_kind : second.m_kind;
    const double(*a)[4] = first.m_elements;
    const double(*b)[4] = second.m_elements;
    if (result.m_kind == giXFORM_AFFINE)
    {
        for (int column = 0; column < 4; ++column)
        {
            const double b0 = b[0][column], b1 = b[1][column], b2 = b[2][column], b3 = b[3][column];
            result.m_elements[0][column] = a[0][0] * b0 + a[0][1] * b1 + a[0][2] * b2;
            result.m_elements[1][column] = a[1][0] * b0 + a[1][1] * b1 + a[1][2] * b2;
            result.m_elements[2][column] = a[2][0] * b0 + a[2][1] * b1 + a[2][2] * b2;
            result.m_elements[3][column] = a[3][0] * b0 + a[3][1] * b1 + a[3][2] * b2 + b3;
        }
        return result;
    }
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            result.m_elements[row][column] = a[row][0] * b[0][column] + a[row][1] * b[1][column] +
                                             a[row][2] * b[2][column] + a[row][3] * b[3][column];
    return result;
}

inline giPoint3 operator*(const giPoint3& p, const giXform3& xform)
{
    return xform.transform(p);
}

inline giVector3 operator*(const giVector3& v, const giXform3& xform)
{
    return xform.transform(v);
}

inline giXform3 giXform3::rotation_about_unit(giAngle angle, const giVector3& unit_axis, const giPoint3& through)
{
    const double x = unit_axis.x(), y = unit_axis.y(), z = unit_axis.z();
    if (angle.radians() == 0 || (x == 0 && y == 0 && z == 0))
        return giXform3();

    // Rodrigues' formula, transposed for points as rows.
    const double s = angle.sin(), c = angle.cos(), t = 1 - c;
    giXform3 result;
    result.m_kind = giXFORM_AFFINE;
    result.set_row(0, t * x * x + c, t * x * y + s * z, t * x * z - s * y, 0);
    result.set_row(1, t * x * y - s * z, t * y * y + c, t * y * z + s * x, 0);
    result.set_row(2, t * x * z + s * y, t * y * z - s * x, t * z * z + c, 0);
    const giVector3 move = through.vector() - result.transform(through.vector());
    result.set_row(3, move.x(), move.y(), move.z(), 1);
    return result;
}

inline giXform3 giXform3::translation(const giVector3& offset)
{
    giXform3 result;
    if (offset == giVector3())
        return result;
    result.set_row(3, offset.x(), offset.y(), offset.z(), 1);
    result.m_kind = giXFORM_AFFINE;
    return result;
}

inline giXform3 giXform3::scaling(const giVector3& factors, const giPoint3& about)
{
    giXform3 result;
    if (factors == giVector3(1, 1, 1))
        return result;
    result.set_row(0, factors.x(), 0, 0, 0);
    result.set_row(1, 0, factors.y(), 0, 0);
    result.set_row(2, 0, 0, factors.z(), 0);
    const giVector3 move = about.vector() - result.transform(about.vector());
    result.set_row(3, move.x(), move.y(), move.z(), 1);
    result.m_kind = giXFORM_AFFINE;
    return result;
}

/// Prints the four rows, one to a line.
GI_EXPORT std::ostream& operator<<(std::ostream& os, const giXform3& xform);
