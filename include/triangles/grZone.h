#pragma once

#include "grExport.h"

#include <iosfwd>

/// Where a node, an edge or a triangle of a mesh lies with respect to the surface that cuts the mesh.
enum grZone : int
{
    grUNDETERMINED_ZONE = 0, ///< a triangle with all nodes on the surface, where the zone is told from the nodes
    grON_ZONE = 1,           ///< on the surface, within the tolerance
    grPOSITIVE_ZONE = 2,
    grNEGATIVE_ZONE = 3,
    grSPANNING_ZONE = 4 ///< an edge with ends on opposite sides; a triangle that must be cut
};

GR_EXPORT std::ostream& operator<<(std::ostream& os, grZone zone);
