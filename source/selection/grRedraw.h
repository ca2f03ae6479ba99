#pragma once

#include <vector>

class dgRenderer;
class dgView;

/// Draws all that some renderers show, each once: all views of one change places together. Those of which none of the
/// given views is left are passed over, as null is: overlays may delete views, which then must leave this list.
void gr_redraw(const std::vector<dgRenderer*>& renderers, const std::vector<dgView*>& views);
