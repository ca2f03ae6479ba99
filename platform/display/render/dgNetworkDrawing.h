#pragma once

class dgRenderer;
class dgStructure;

/// Draws a structure and all that it calls, each in a context of its own, but for what lies out of view. The walk has a
/// number; structures that are under way in it are not entered again. Through the renderer's action everything is met,
/// so that its counts do not depend on the view, but for structures in which there is nothing.
void dg_draw_network(dgRenderer& renderer, const dgStructure& root, unsigned long long walk, bool through_action);
