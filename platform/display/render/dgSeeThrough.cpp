#include "dgSeeThrough.h"

#include "dgCamera.h"
#include "dgDriver.h"
#include "dgPrimitiveRun.h"
#include "giBox3.h"

#include <algorithm>
#include <utility>

void dgSeeThrough::place(const dgDrawState& state, const giXform3& transform, const dgCamera& camera)
{
    drop_lost_runs();
    the_placements.push_back({state, transform, transform * camera.orientation()});
}

// What is drawn may edit the network: runs that went with an edit are not drawn this time.
void dgSeeThrough::drop_lost_runs()
{
    if (std::exchange(the_runs_gone, dgPrimitiveRun::gone()) != dgPrimitiveRun::gone())
        std::erase_if(the_entries, [](const Entry& entry) { return entry.run; });
}

void dgSeeThrough::add(const giBox3& box, Entry entry)
{
    const Placement& placement = the_placements.back();
    if (box.empty() || placement.state.opacity <= 0)
        return;
    entry.depth = (box.middle() * placement.to_view).z();
    entry.placement = the_placements.size() - 1;
    the_entries.push_back(std::move(entry));
}

void dgSeeThrough::add(const dgGraphicalPrimitive& primitive)
{
    // One that nobody counts may be gone by then: a copy stays.
    auto* kept = const_cast<dgGraphicalPrimitive*>(&primitive);
    if (primitive.reference_count() < 1)
        kept = static_cast<dgGraphicalPrimitive*>(primitive.copy());
    add(primitive.bounding_box(), {0, 0, dgRef<dgGraphicalPrimitive>(kept), nullptr, {}});
}

void dgSeeThrough::add(const dgPrimitiveRun& run)
{
    constexpr std::size_t most = 10000; // beyond, sorting one by one costs more than it shows
    if (run.primitives.size() > most)
        return add(run, {});
    for (const dgGraphicalPrimitive* primitive : run.primitives)
        add(*primitive);
}

void dgSeeThrough::add(const dgPrimitiveRun& run, const std::vector<dgFeatureSpan>& spans)
{
    add(run.bounds().box(), {0, 0, {}, &run, spans});
}

void dgSeeThrough::draw(dgDriver& driver)
{
    drop_lost_runs();
    std::stable_sort(the_entries.begin(), the_entries.end(),
                     [](const Entry& a, const Entry& b) { return a.depth < b.depth; });
    for (const Entry& entry : the_entries)
    {
        const Placement& placement = the_placements[entry.placement];
        driver.set_model_transform(placement.transform);
        driver.set_state(placement.state);
        if (entry.primitive)
            driver.draw_primitive(*entry.primitive);
        else if (entry.spans.empty())
            driver.draw_run(*entry.run);
        else
            driver.draw_features(*entry.run, entry.spans);
    }
    the_entries.clear();
    the_placements.clear();
}
