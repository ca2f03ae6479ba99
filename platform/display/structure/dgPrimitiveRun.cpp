#include "dgPrimitiveRun.h"

dgPrimitiveRun::~dgPrimitiveRun() = default;

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

void dgPrimitiveRun::primitive_changed(int number, unsigned long long changed_stamp)
{
    stamp = changed_stamp;
    if (bounds_cache && !bounds_cache->primitive_changed(*this, number))
        bounds_cache.reset();
}
