#include "dgTextFontCache.h"

dgTextFontCache::~dgTextFontCache() = default;
