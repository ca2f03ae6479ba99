#pragma once

#include "dgEnums.h"
#include "dgExport.h"

#include <span>

/// Type codes from first to last.
struct dgTypeRange
{
    int first, last;
};

/// The types of the attributes that primitives of a type use, in the order in which they are written to structures; all
/// types for dgPRIMITIVE_ANY.
DG_EXPORT std::span<const dgTypeRange> dg_attribute_types(dgGraphicalPrimitiveType type);
