#include "dgGLTransforms.h"

#include "dgDrawState.h"
#include "giPoint3.h"

#include <algorithm>
#include <cmath>

namespace
{
// How many half windows away from the middle of view space positions are still fine enough to tell slopes from.
constexpr double most_windows = 4096;

void to_floats(const giXform3& xform, float (&elements)[16])
{
    // A matrix of row vectors, row by row, is the same memory as OpenGL's of column vectors, column by column.
    for (int i = 0; i < 16; ++i)
        elements[i] = static_cast<float>(xform.data()[i]);
}

// Vectors at right angles to surfaces go through the transposed inverse, up to a positive factor: the matrix of
// cofactors, with the sign of the determinant.
double normal_matrix(const giXform3& xform, float (&elements)[9])
{
    const auto m = [&](int row, int column) { return xform(row % 3, column % 3); };
    double cofactors[3][3];
    double largest = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
        {
            cofactors[row][column] =
                m(row + 1, column + 1) * m(row + 2, column + 2) - m(row + 1, column + 2) * m(row + 2, column + 1);
            largest = std::max(largest, std::abs(cofactors[row][column]));
        }
    const double determinant = m(0, 0) * cofactors[0][0] + m(0, 1) * cofactors[0][1] + m(0, 2) * cofactors[0][2];
    const double scale = (determinant < 0 ? -1 : 1) / (largest > 0 ? largest : 1);
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            elements[3 * row + column] = static_cast<float>(cofactors[row][column] * scale);
    return determinant;
}
}

void dgGLTransforms::set(const dgCameraState& camera, const giXform3& model_to_world, const giPoint3& origin)
{
    const giXform3 to_world =
        origin == giPoint3() ? model_to_world : giXform3::translation(origin.vector()) * model_to_world;
    const giXform3 to_view = to_world * camera.world_to_view;
    to_floats(to_view * camera.projection, model_to_clip);
    to_floats(to_view, model_to_view);
    // Positions in view space serve differences alone, which would drown far outside the window.
    double offset = 0;
    for (int column = 0; column < 3; ++column)
        offset = std::max(offset, std::abs(to_view(3, column)));
    if (offset * std::abs(camera.projection(0, 0)) > most_windows)
        std::fill(model_to_view + 12, model_to_view + 15, 0.0f);
    if (camera.sectioned)
        for (int row = 0; row < 4; ++row)
        {
            double share = row < 3 ? 0 : camera.section[3];
            for (int axis = 0; axis < 3; ++axis)
                share += to_world(row, axis) * camera.section[axis];
            section[row] = static_cast<float>(share);
        }
    mirrored = normal_matrix(to_view, normal_to_view) < 0;

    // The share of the cue colour grows evenly with view z from the front plane to the back plane. In a parallel view
    // window z does, in perspective clip w.
    const giXform3& p = camera.projection;
    const auto w_of = [&](double z) { return z * p(2, 3) + p(3, 3); };
    const double w_front = w_of(camera.front);
    const double w_back = w_of(camera.back);
    if (p.kind() == giXFORM_PROJECTIVE && w_back != w_front)
    {
        cue[0] = 0;
        cue[1] = static_cast<float>(1 / (w_back - w_front));
        cue[2] = static_cast<float>(-w_front / (w_back - w_front));
    }
    else
    {
        cue[0] = 1;
        cue[1] = cue[2] = 0;
    }
}
