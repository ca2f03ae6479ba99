#pragma once

#include "grRubberBandManager.h"

#include "dgMultiline.h"
#include "dgRef.h"

class dgRenderer;
class giPoint2;
class grRubberBandCallback;
class grRubberBandItem;

/// A rectangle that is drawn over a window while it is dragged out.
class grRubberBandRectangle
{
public:
    grRubberBandRectangle();
    /// Forgets it.
    ~grRubberBandRectangle();
    grRubberBandRectangle(const grRubberBandRectangle&) = delete;
    grRubberBandRectangle& operator=(const grRubberBandRectangle&) = delete;

    /// Draws it between two corners in device pixels, cut off to whole ones, in place of what was drawn before.
    void draw(dgRenderer* renderer, const giPoint2& corner, const giPoint2& opposite);
    void undraw();
    /// Drops it, undrawn or not, without a call to its renderer, which may have gone.
    void forget();

private:
    static void draw_lines(grRubberBandItem* item, grRubberBandIt it);

    grRubberBandManager the_manager; // so that there is one for the time of the drag
    dgMultiline the_lines{4};
    dgRef<grRubberBandCallback> the_item; // null while nothing is drawn
};
