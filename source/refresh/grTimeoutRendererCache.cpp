#include "grTimeoutRendererCache.h"

#include "dgView.h"
#include "grCacheElement.h"
#include "grTimeoutRenderer.h"

#include <algorithm>

namespace
{
constexpr int kept_generations = 10;
}

grTimeoutRendererCache::grTimeoutRendererCache(int capacity) : the_capacity(capacity) {}

grTimeoutRendererCache::~grTimeoutRendererCache() = default;

void grTimeoutRendererCache::add_timeout_renderers(const dgViewcoDList& views)
{
    ++the_generation;
    for (dgView* view : views)
        use(view);
    housekeep_list(views.count());
}

void grTimeoutRendererCache::add_timeout_renderer(dgView* view)
{
    use(view);
    housekeep_list(1);
}

void grTimeoutRendererCache::add_timeout_renderer_and_time(dgView* view, double seconds)
{
    add_timeout_renderer(view);
    find_timeout_renderer(view)->full_refresh_time(seconds);
}

void grTimeoutRendererCache::use(dgView* view)
{
    if (grCacheElement* element = find(view))
    {
        element->last_used(the_generation);
        return;
    }
    the_elements.push_back(std::make_unique<grCacheElement>(view, the_nstats, the_generation));
    view->call_list().add(DG_VIEW_TO_BE_DELETED, coCallFunc::member<&grTimeoutRendererCache::remove_view>(this));
}

grCacheElement* grTimeoutRendererCache::find(const dgView* view) const
{
    const auto found = std::find_if(the_elements.begin(), the_elements.end(),
                                    [view](const auto& element) { return element->view() == view; });
    return found == the_elements.end() ? nullptr : found->get();
}

grTimeoutRenderer* grTimeoutRendererCache::find_timeout_renderer(const dgView* view) const
{
    const grCacheElement* element = find(view);
    return element ? &element->renderer() : nullptr;
}

int grTimeoutRendererCache::find_full_refresh_time(const dgViewcoDList& views, double& seconds) const
{
    seconds = 0;
    for (const dgView* view : views)
    {
        const grTimeoutRenderer* renderer = find_timeout_renderer(view);
        if (!renderer || !renderer->got_full_refresh_time())
            return 0;
        seconds += renderer->full_refresh_time();
    }
    return 1;
}

void grTimeoutRendererCache::reset_all()
{
    for (const auto& element : the_elements)
        element->renderer().reset();
}

// One walk at most: those used in the last generations stay, even above the capacity.
void grTimeoutRendererCache::housekeep_list(int min)
{
    if (size() <= std::max(min, the_capacity))
        return;
    for (std::size_t i = 0; i < the_elements.size() && size() > the_capacity;)
    {
        if (the_elements[i]->last_used() >= the_generation - kept_generations)
        {
            ++i;
            continue;
        }
        the_elements[i]->view()->call_list().remove(DG_VIEW_TO_BE_DELETED, this);
        the_elements.erase(the_elements.begin() + static_cast<std::ptrdiff_t>(i));
    }
}

void grTimeoutRendererCache::remove_view(void* sender, void*)
{
    const auto* view = static_cast<const dgView*>(sender);
    std::erase_if(the_elements, [view](const auto& element) { return element->view() == view; });
}
