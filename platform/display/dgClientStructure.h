#pragma once

#include "dgStructure.h"

/// The structure that applications make and fill.
class DG_EXPORT dgClientStructure : public dgStructure
{
public:
    /// initial_room is a hint of the number of elements to come.
    explicit dgClientStructure(int initial_room = 0);

    static const utTypeID& ut_static_type();
    const utTypeID& ut_dynamic_type() const override;
    int ut_is_kind_of(const utTypeID& type) const override;
};
