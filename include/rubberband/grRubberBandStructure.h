#pragma once

#include "dgRef.h"
#include "grRubberBandColourAppElement.h"
#include "grRubberBandViewItem.h"

class dgStructure;

/// A structure that is drawn over a view.
class GR_EXPORT grRubberBandStructure : public grRubberBandViewItem
{
public:
    /// References the structure.
    grRubberBandStructure(dgRenderer* renderer, dgView* view, dgStructure* structure, void* user_data);
    ~grRubberBandStructure() override;

    grRubberBandItemType type() const override;

    /// With the manager's set_default_colour_in_xor_mode the structure starts in the manager's colour.
    void after_begin(grRubberBandIt it, int xor_mode, dgRenderer* renderer, dgView* view) override;
    void print(std::ostream& os) const override;

    UT_DECLARE_TYPE(grRubberBandStructure, dgBase);

protected:
    void execute_in_view(dgView& view) override;

private:
    dgRef<dgStructure> the_structure;
    dgRef<grRubberBandColourAppElement> the_colour; // made on first use
};
