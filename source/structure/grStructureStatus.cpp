#include "grStructureCutStatus.h"
#include "grStructurePasteStatus.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grStructureCutStatus status)
{
    switch (status)
    {
    case grSTRUCTURE_CUT_OK: return os << "grSTRUCTURE_CUT_OK";
    case grSTRUCTURE_CUT_UNCLOSED: return os << "grSTRUCTURE_CUT_UNCLOSED";
    case grSTRUCTURE_CUT_NO_START: return os << "grSTRUCTURE_CUT_NO_START";
    }
    return os << "Unknown value for grStructureCutStatus";
}

std::ostream& operator<<(std::ostream& os, grStructurePasteStatus status)
{
    switch (status)
    {
    case grSTRUCTURE_PASTE_OK: return os << "grSTRUCTURE_PASTE_OK";
    case grSTRUCTURE_PASTE_NO_HOME: return os << "grSTRUCTURE_PASTE_NO_HOME";
    }
    return os << "Unknown value for grStructurePasteStatus";
}
