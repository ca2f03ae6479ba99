#pragma once

#include "gi_Axis.h"
#include "grExport.h"

class dgView;

// Probes of how fast a view is drawn and picked in. Each goes on for a number of seconds and answers how many frames it
// drew and the seconds that this took. Views without a renderer give 0 frames. Angles are radians.

/// Erases and redraws the view.
GR_EXPORT void gr_time_static_refresh(dgView* view, double duration, int& frames, double& elapsed);

/// Turns the view about one of its axes by an angle before each redraw. It is left turned.
GR_EXPORT void gr_time_rotating_refresh(dgView* view, double duration, gi_Axis axis, double angle, int& frames,
                                        double& elapsed);

/// Sets the camera's scale to its first scale times the next of n_factors factors, over and over, before each redraw;
/// puts it back at the end. Without factors the scale stays.
GR_EXPORT void gr_time_zooming_refresh(dgView* view, double duration, const double* factors, int n_factors, int& frames,
                                       double& elapsed);

/// Turns the view and redraws it with a fast refresher; its first two frames, which learn, and the last, which draws
/// everything, are not counted. Drops what fast refreshers have kept. The view is left turned.
GR_EXPORT void gr_time_fast_rotating_refresh(dgView* view, double duration, gi_Axis axis, double angle, int& frames,
                                             double& elapsed);

/// Erases the view and answers the seconds that drawing its network once takes.
GR_EXPORT void gr_time_render_network(dgView* view, double& elapsed);

/// Picks everything in the view's viewport. picked is how many elements the last pick found. mode is a dgPickMode;
/// largest_count, lines and surfaces are the fields of dgPickSettings for the run. A view without a root gives 0 frames
/// in 0 seconds.
GR_EXPORT void gr_time_pick(dgView* view, double duration, int& frames, double& elapsed, int& picked, int mode,
                            int largest_count, int lines, int surfaces);
