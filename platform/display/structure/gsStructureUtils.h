#pragma once

#include "dgExport.h"

class dgGraphicalElement;
class dgStructure;

/// Questions about structures.
class DG_EXPORT gsStructureUtils
{
public:
    gsStructureUtils() = delete;

    /// The first place of an element in a structure, counted from 1; 0 when it is not there. The element is compared
    /// by its address alone. Looks at the elements one after the other.
    static int element_index(const dgGraphicalElement* element, const dgStructure* structure);
};
