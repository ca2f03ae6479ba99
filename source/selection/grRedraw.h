#pragma once

class dgRenderer;

/// Draws all that a renderer shows. All its views change places together.
void gr_redraw(dgRenderer& renderer);
