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

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
    static grRubberBandGraphicalElement* ut_dynamic_cast(dgBase* base);

protected:
    void execute_in_view(dgView& view) override;

private:
    dgRef<dgGraphicalElement> the_element;
};
