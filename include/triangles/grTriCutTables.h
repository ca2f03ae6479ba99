#pragma once

#include "coSet.h"
#include "coTable.h"
#include "grInterNode.h"
#include "grZone.h"
#include "gsTriEdge.h"

#include <vector>

/// The tables of a cut, by node number and by edge without regard to direction.
using intgrZonecoTable = coTable<int, grZone>;
using gsTriEdgegrZonecoTable = coTable<gsTriEdge, grZone>;
/// The cut points; the direction of the key is the one that grInterNode::t refers to.
using gsTriEdgegrInterNodecoTable = coTable<gsTriEdge, grInterNode>;
using gsTriEdgecoSet = coSet<gsTriEdge>;
using intcoSet = coSet<int>;
using intintcoTable = coTable<int, int>;
