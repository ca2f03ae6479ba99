#include "dgAttributeTypes.h"

namespace
{
constexpr dgTypeRange line_types[] = {{0, 2}};
constexpr dgTypeRange text_types[] = {{3, 20}};
constexpr dgTypeRange marker_types[] = {{21, 24}};
constexpr dgTypeRange curve_types[] = {{0, 2}, {72, 72}};
constexpr dgTypeRange surface_types[] = {{22, 23}, {0, 2}, {25, 66}, {71, 74}, {69, 69}};
constexpr dgTypeRange fill_area_types[] = {{0, 2}, {25, 66}};
constexpr dgTypeRange all_types[] = {{0, 74}};
}

std::span<const dgTypeRange> dg_attribute_types(dgGraphicalPrimitiveType type)
{
    switch (type)
    {
    case dgPRIMITIVE_LINES:
    case dgPRIMITIVE_LINES_2D: return line_types;
    case dgPRIMITIVE_TEXT: return text_types;
    case dgPRIMITIVE_MARKERS: return marker_types;
    case dgPRIMITIVE_CURVE: return curve_types;
    case dgPRIMITIVE_SURFACE: return surface_types;
    case dgPRIMITIVE_FILL_AREA: return fill_area_types;
    case dgPRIMITIVE_ANY: return all_types;
    }
    return {};
}
