#include "grBlockDiagClass.h"
#include "grBlockVisClass.h"
#include "grIdImageSense.h"
#include "grSplitterProgressSection.h"

#include <ostream>

std::ostream& operator<<(std::ostream& os, grBlockVisClass vis)
{
    switch (vis)
    {
    case grVIS_UPPER: return os << "grVIS_UPPER";
    case grVIS_LOWER: return os << "grVIS_LOWER";
    case grVIS_UNDECIDED: return os << "grVIS_UNDECIDED";
    case grVIS_BOTH: return os << "grVIS_BOTH";
    }
    return os << "Unknown value for grBlockVisClass";
}

std::ostream& operator<<(std::ostream& os, grBlockDiagClass diag)
{
    switch (diag)
    {
    case grDIAG_OVERVIEW_UPPER: return os << "grDIAG_OVERVIEW_UPPER";
    case grDIAG_OVERVIEW_LOWER: return os << "grDIAG_OVERVIEW_LOWER";
    case grDIAG_OVERVIEW_NEITHER: return os << "grDIAG_OVERVIEW_NEITHER";
    case grDIAG_POINT_ZOOM_UPPER: return os << "grDIAG_POINT_ZOOM_UPPER";
    case grDIAG_POINT_ZOOM_LOWER: return os << "grDIAG_POINT_ZOOM_LOWER";
    case grDIAG_POINT_ZOOM_NEITHER: return os << "grDIAG_POINT_ZOOM_NEITHER";
    case grDIAG_STUBBY_UPPER: return os << "grDIAG_STUBBY_UPPER";
    case grDIAG_STUBBY_LOWER: return os << "grDIAG_STUBBY_LOWER";
    case grDIAG_STUBBY_NEITHER: return os << "grDIAG_STUBBY_NEITHER";
    case grDIAG_THIN_UPPER: return os << "grDIAG_THIN_UPPER";
    case grDIAG_THIN_LOWER: return os << "grDIAG_THIN_LOWER";
    case grDIAG_NOT_VERTICAL: return os << "grDIAG_NOT_VERTICAL";
    case grDIAG_NOT_CLASSIFIED: return os << "grDIAG_NOT_CLASSIFIED";
    case grDIAG_SELF_HIDER: return os << "grDIAG_SELF_HIDER";
    }
    return os << "Unknown value for grBlockDiagClass";
}

std::ostream& operator<<(std::ostream& os, grIdImageSense sense)
{
    switch (sense)
    {
    case grID_IMAGE_UPPER: return os << "grID_IMAGE_UPPER";
    case grID_IMAGE_LOWER: return os << "grID_IMAGE_LOWER";
    }
    return os << "Unknown value for grIdImageSense";
}

std::ostream& operator<<(std::ostream& os, grSplitterProgressSection section)
{
    switch (section)
    {
    case grSPLITTER_OVERVIEW: return os << "grSPLITTER_OVERVIEW";
    case grSPLITTER_POINT_ZOOM: return os << "grSPLITTER_POINT_ZOOM";
    case grSPLITTER_BLOCK_ZOOM: return os << "grSPLITTER_BLOCK_ZOOM";
    case grSPLITTER_CLASSIFY: return os << "grSPLITTER_CLASSIFY";
    }
    return os << "Unknown value for grSplitterProgressSection";
}
