#include "vwStandardView.h"

#include "grIsometricTool.h"

#include "dgView.h"

#include <cstddef>
#include <iterator>
#include <numbers>

namespace
{
// What the tool does, so that its key changes nothing at first.
struct Isometric : grIsometricTool
{
    using grIsometricTool::isometric_view;
};

// About the z axis and then about the x axis of the view, in radians.
const struct
{
    double z, x;
} turns[] = {{0, 0}, // the tool's
             {0, 0},
             {0, -std::numbers::pi / 2},
             {-std::numbers::pi / 2, -std::numbers::pi / 2}};
}

void vw_standard_view(dgView& view, int number)
{
    const std::size_t kind = static_cast<std::size_t>(number) % std::size(turns);
    if (kind == 0)
        return Isometric::isometric_view(&view);
    view.camera().reset_orientation();
    view.camera().rotate_view(gi_Z_AXIS, turns[kind].z);
    view.camera().rotate_view(gi_X_AXIS, turns[kind].x);
    view.view_bbox();
}
