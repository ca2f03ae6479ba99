#pragma once

#include "dgGraphicalElement.h"
#include "dgRef.h"

/// Draws another structure. Attributes and transforms set inside it end with it.
class DG_EXPORT dgStructureCall : public dgGraphicalElement
{
public:
    /// structure may be null; it is referenced.
    explicit dgStructureCall(dgStructure* structure);
    ~dgStructureCall() override;

    dgStructure* called_structure() const override;
    dgStructureCall* copy() const override;
    void draw(dgRenderer* renderer) const override;

    UT_DECLARE_TYPE(dgStructureCall, dgGraphicalElement);

private:
    dgRef<dgStructure> the_structure;
};
