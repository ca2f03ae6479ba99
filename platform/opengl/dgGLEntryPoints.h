#pragma once

/// Called after another context may have become the current one: where each driver has entry points of its own, those
/// of the current context are looked up when it is not the last one. Costs next to nothing when it is.
void dg_gl_update_entry_points();
