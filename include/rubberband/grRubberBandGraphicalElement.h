#pragma once

#include "dgRef.h"
#include "grRubberBandViewItem.h"

class dgGraphicalElement;

/// One element that is drawn over a view.
class GR_EXPORT grRubberBandGraphicalElement : public grRubberBandViewItem
{
public:
    /// References the element.
    grRubberBandGraphicalElement(dgRenderer* renderer, dgView* view, dgGraphicalElement* element, void* user_data);
    ~grRubberBandGraphicalElement() override;

    grRubberBandItemType type() const override;
    void print(std::ostream& os) const override;

    UT_DECLARE_TYPE(grRubberBandGraphicalElement, dgBase);

protected:
    void execute_in_view(dgView& view) override;

private:
    dgRef<dgGraphicalElement> the_element;
};
