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

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;

private:
    dgRef<dgStructure> the_structure;
};
