#pragma once

#include "dgEnums.h"
#include "dgExport.h"
#include "dgRef.h"

#include <array>

class dgGraphicalAttribute;

/// One attribute of each type: what holds where nothing else was set.
class DG_EXPORT dgAttributeArray
{
public:
    dgAttributeArray();
    dgAttributeArray(const dgAttributeArray&);
    dgAttributeArray& operator=(const dgAttributeArray&);
    ~dgAttributeArray();

    /// The attribute of a type code from 0 to 74, or null.
    dgGraphicalAttribute* query(int type) const;

    /// Replaces the attribute of its type; it is referenced.
    void set(dgGraphicalAttribute* attribute);

    /// What holds in every renderer where nothing was set.
    static dgAttributeArray& process_wide();

private:
    std::array<dgRef<dgGraphicalAttribute>, dgTYPE_LAST_ATTRIBUTE + 1> the_attributes;
};
