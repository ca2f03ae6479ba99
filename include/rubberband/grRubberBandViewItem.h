#pragma once

#include "grRubberBandItem.h"

/// An item that is drawn in a view, between its begin and end. Hidden lines and surfaces are switched in the view's
/// shading context.
class GR_EXPORT grRubberBandViewItem : public grRubberBandItem
{
public:
    dgView* view() const { return the_view; }

    void draw(grRubberBandIt it, grRubberBandSelectDriver select) override;
    void turn_off_hlhsr() override;
    void turn_on_hlhsr() override;

    UT_DECLARE_TYPE(grRubberBandViewItem, dgBase);

protected:
    /// The view is not owned and must outlive the item, or grRubberBandManager::to_be_deleted be told.
    grRubberBandViewItem(dgRenderer* renderer, dgView* view, void* user_data);

    void execute(grRubberBandIt it, int xor_mode) override;

    /// Draws what the item is made of, between the view's begin and end.
    virtual void execute_in_view(dgView& view) = 0;

private:
    dgView* the_view;
};
