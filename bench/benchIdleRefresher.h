#pragma once

#include "grViewRefresher.h"

/// Refresher that draws nothing, for timing all that comes before a drawing.
class benchIdleRefresher : public grViewRefresher
{
public:
    using grViewRefresher::grViewRefresher;

protected:
    void refresh() override {}
    void end_twiddle() override {}
};
