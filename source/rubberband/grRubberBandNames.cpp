#include "grPrimColourType.h"
#include "grRubberBandIt.h"
#include "grRubberBandItemState.h"
#include "grRubberBandItemType.h"
#include "grRubberBandMode.h"
#include "grRubberBandSelectDriver.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grRubberBandIt value)
{
    switch (value)
    {
    case grDRAW_RUBBER_BAND_ITEM: return os << "grDRAW_RUBBER_BAND_ITEM\n";
    case grUNDRAW_RUBBER_BAND_ITEM: return os << "grUNDRAW_RUBBER_BAND_ITEM\n";
    }
    return os << "Unknown value for grRubberBandIt\n";
}

std::ostream& operator<<(std::ostream& os, grRubberBandSelectDriver value)
{
    switch (value)
    {
    case grRUBBER_BAND_SELECT_DRIVER: return os << "grRUBBER_BAND_SELECT_DRIVER\n";
    case grRUBBER_BAND_DO_NOT_SELECT_DRIVER: return os << "grRUBBER_BAND_DO_NOT_SELECT_DRIVER\n";
    }
    // Deliberate: named without "Band", as programs that read dumps know it.
    return os << "Unknown value for grRubberSelectDriver\n";
}

std::ostream& operator<<(std::ostream& os, grRubberBandItemState value)
{
    switch (value)
    {
    case grDRAWN_RUBBER_BAND_ITEM: return os << "grDRAWN_RUBBER_BAND_ITEM\n";
    case grUNDRAWN_RUBBER_BAND_ITEM: return os << "grUNDRAWN_RUBBER_BAND_ITEM\n";
    case grTEMP_UNDRAWN_RUBBER_BAND_ITEM: return os << "grTEMP_UNDRAWN_RUBBER_BAND_ITEM\n";
    }
    return os << "Unknown value for grRubberBandItemState\n";
}

std::ostream& operator<<(std::ostream& os, grRubberBandItemType value)
{
    switch (value)
    {
    case grRUBBER_BAND_CALLBACK_ITEM: return os << "grRUBBER_BAND_CALLBACK_ITEM\n";
    case grRUBBER_BAND_STRUCTURE_ITEM: return os << "grRUBBER_BAND_STRUCTURE_ITEM\n";
    case grRUBBER_BAND_GRAPHICAL_ELEMENT_ITEM: return os << "grRUBBER_BAND_GRAPHICAL_ELEMENT_ITEM\n";
    }
    return os << "Unknown value for grRubberBandItemType\n";
}

std::ostream& operator<<(std::ostream& os, grPrimColourType value)
{
    switch (value)
    {
    case grLINE_COLOUR: return os << "grLINE_COLOUR";
    case grTEXT_COLOUR: return os << "grTEXT_COLOUR";
    case grMARKER_COLOUR: return os << "grMARKER_COLOUR";
    case grALL_PRIM_COLOUR: return os << "grALL_PRIM_COLOUR";
    }
    return os << "Unknown value for grPrimColourType";
}

std::ostream& operator<<(std::ostream& os, grRubberBandMode value)
{
    switch (value)
    {
    case grRUBBER_BAND_VIA_XOR: return os << "grRUBBER_BAND_VIA_XOR";
    case grRUBBER_BAND_IN_OVERLAY_PLANES: return os << "grRUBBER_BAND_IN_OVERLAY_PLANES";
    case grRUBBER_BAND_IN_MAIN_PLANES: return os << "grRUBBER_BAND_IN_MAIN_PLANES";
    }
    return os << "Unknown value for grRubberBandMode";
}
