#pragma once

class dgView;

/// Turns a view to one of the standard ones and fits it: 0 isometric, 1 from above, 2 from the front, 3 from the right;
/// further numbers start over.
void vw_standard_view(dgView& view, int number);
