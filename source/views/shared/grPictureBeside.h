#pragma once

#include "dgEnums.h"
#include "dgS.h"

/// Draws, in a buffer, what a renderer's picture shows beside some of its views: its other views, and nothing where no
/// view lies, if the renderer is a canvas's. The overlay callback may destroy views.
void gr_draw_picture_beside(dgRenderer& renderer, const dgViewcoDList& views, dgDoubleBuffer buffer);
