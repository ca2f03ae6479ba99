#pragma once

class grRubberBandItem;

/// A walk along the items that neither meets one twice nor passes one over when items leave the list meanwhile.
class grRubberBandWalk
{
public:
    grRubberBandWalk();
    ~grRubberBandWalk();
    grRubberBandWalk(const grRubberBandWalk&) = delete;
    grRubberBandWalk& operator=(const grRubberBandWalk&) = delete;

    /// The next item, or null at the end.
    grRubberBandItem* next();

    /// Tells all walks that the item at a position has left.
    static void item_left(int position);

private:
    int the_position = 0;
    grRubberBandWalk* the_outer;
};
