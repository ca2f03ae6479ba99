#include "vwStandardView.h"

#include "grViewOperations.h"

#include "dgView.h"

#include <numbers>

void vw_standard_view(dgView& view, int number)
{
    constexpr double quarter_turn = std::numbers::pi / 2;
    const int kind = number % 4;
    if (kind == 0)
        return grViewOperations::isometric(view);
    dgCamera& camera = view.camera();
    camera.reset_orientation();
    if (kind == 3)
        camera.rotate_view(gi_Z_AXIS, -quarter_turn);
    if (kind >= 2)
        camera.rotate_view(gi_X_AXIS, -quarter_turn);
    grViewOperations::fit(view);
}
