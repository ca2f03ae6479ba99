#pragma once

#include "dgExport.h"

class dgView;

/// Consulted by refreshers about a view's network.
class DG_EXPORT dgRenderNetworkAction
{
public:
    virtual ~dgRenderNetworkAction();

    /// True when slices of the network must not be drawn in idle time.
    virtual bool check(const dgView& view) const = 0;
};
