#pragma once

#include "grRubberBandManager.h"

#include "dgMultiline.h"
#include "dgRef.h"

class dgView;
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

    /// Draws it by the view's renderer between two corners in device pixels, cut off to whole ones, in place of what
    /// was drawn before; a view without a renderer shows nothing.
    void draw(const dgView& view, const giPoint2& corner, const giPoint2& opposite);
    /// Takes it off the picture of the view, if that is still there and still has the renderer that drew it; else the
    /// renderer may have gone and is not called.
    void finish(const dgView* view);

private:
    void forget();
    static void draw_lines(grRubberBandItem* item, grRubberBandIt it);

    grRubberBandManager the_manager; // so that there is one for the time of the drag
    dgMultiline the_lines{4};
    dgRef<grRubberBandCallback> the_item; // null while nothing is drawn
};
