#include "dgPrimitiveRun.h"

dgPrimitiveRun::~dgPrimitiveRun() = default;

const dgRunSampling& dgPrimitiveRun::sampling() const
{
    if (!sampling_cache || sampling_cache->run_stamp() != stamp)
        sampling_cache = std::make_unique<dgRunSampling>(*this);
    return *sampling_cache;
}
