#pragma once

#include "coDList.h"
#include "coReceiver.h"
#include "dgS.h"
#include "grExport.h"

#include <memory>
#include <vector>

class dgView;
class grCacheElement;
class grTimeoutRenderer;

/// Keeps the time-out renderers of views from one twiddle to the next, so that what they have learnt is used again.
///
/// A renderer lives until its view is destroyed, or until the cache is above its capacity and the view was in none of
/// the last ten twiddles.
class GR_EXPORT grTimeoutRendererCache : public coReceiver
{
public:
    explicit grTimeoutRendererCache(int capacity);
    ~grTimeoutRendererCache() override;

    /// At the start of a twiddle: makes renderers for the views that have none.
    void add_timeout_renderers(const dgViewcoDList& views);
    /// The same for one view, outside the count of twiddles.
    void add_timeout_renderer(dgView* view);
    /// Also records how long, in seconds, drawing the view in full took.
    void add_timeout_renderer_and_time(dgView* view, double seconds);

    /// Null when there is none.
    grTimeoutRenderer* find_timeout_renderer(const dgView* view) const;

    /// 1 when the time of drawing each of the views in full is known; seconds is then the sum. It is changed in any
    /// case.
    int find_full_refresh_time(const dgViewcoDList& views, double& seconds) const;

    /// Lets all renderers measure again.
    void reset_all();
    int size() const { return static_cast<int>(the_elements.size()); }

    /// How many times of each kind renderers made from now on remember; 0 at first.
    void record_refresh_stats(int n) { the_nstats = n; }
    int refresh_stats() const { return the_nstats; }

protected:
    grTimeoutRendererCache(const grTimeoutRendererCache&) = delete;
    grTimeoutRendererCache& operator=(const grTimeoutRendererCache&) = delete;

private:
    void use(dgView* view);
    void housekeep_list(int min);
    void remove_view(void* sender, void* data);
    grCacheElement* find(const dgView* view) const;

    std::vector<std::unique_ptr<grCacheElement>> the_elements;
    int the_capacity;
    int the_generation = 0;
    int the_nstats = 0;
};
