#include "dgPrimitiveRun.h"

namespace
{
unsigned long long the_last_number = 0, the_gone = 0;
}

dgPrimitiveRun::dgPrimitiveRun() : number(++the_last_number) {}

dgPrimitiveRun::~dgPrimitiveRun()
{
    ++the_gone;
}

unsigned long long dgPrimitiveRun::gone()
{
    return the_gone;
}

const dgRunSampling& dgPrimitiveRun::sampling() const
{
    if (!sampling_cache || sampling_cache->run_stamp() != stamp)
        sampling_cache = std::make_unique<dgRunSampling>(*this);
    return *sampling_cache;
}

const dgRunBounds& dgPrimitiveRun::bounds() const
{
    if (!bounds_cache)
        bounds_cache = std::make_unique<dgRunBounds>(*this);
    return *bounds_cache;
}

void dgPrimitiveRun::primitive_changed(int primitive, unsigned long long changed_stamp)
{
    stamp = changed_stamp;
    the_small_features = not_counted;
    if (bounds_cache && !bounds_cache->primitive_changed(*this, primitive))
        bounds_cache.reset();
}
