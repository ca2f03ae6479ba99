#pragma once

#include "grExport.h"

#include <memory>

class dgView;
class grTimeoutRenderer;

/// A time-out renderer in a cache, and when it was last asked for.
class GR_EXPORT grCacheElement
{
public:
    /// nstats is how many times the renderer remembers.
    grCacheElement(dgView* view, int nstats, int generation);
    ~grCacheElement();
    grCacheElement(const grCacheElement&) = delete;
    grCacheElement& operator=(const grCacheElement&) = delete;

    grTimeoutRenderer& renderer() const { return *the_renderer; }
    dgView* view() const;

    /// The generation of the cache.
    int last_used() const { return the_last_used; }
    void last_used(int generation) { the_last_used = generation; }

private:
    std::unique_ptr<grTimeoutRenderer> the_renderer;
    int the_last_used;
};
