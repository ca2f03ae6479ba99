#include "dgRunCache.h"

dgRunCache::~dgRunCache() = default;
