#include "grTimeoutRenderer.h"

#include "apHighResTime.h"
#include "dgGraphicalPrimitive.h"
#include "dgRenderer.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "grNetworkWalk.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grView.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr int lines = 1, triangles = 2, points = 19; // categories
constexpr double same_budget = 1e-5;                 // seconds
constexpr double shortest_time = 0.01;               // seconds; below, clocks and small scenes give no useful speed

// What an element counts as. The counts of points and lines follow from what they hold; only 0 becomes 1.
int primitive_count(const dgGraphicalPrimitive& primitive)
{
    int count = 1;
    switch (primitive.type())
    {
    case dgTYPE_TRIANGLE_BLOCK: count = static_cast<const dgTriangleBlock&>(primitive).triangle_count(); break;
    case dgTYPE_POLYLINE:
    case 106: count = primitive.geometry().npoints - 1; break;
    case dgTYPE_POINT_SET:
    case 107: count = primitive.geometry().npoints; break;
    case 108: count = std::max(0, primitive.end_index() - primitive.start_index()) - 1; break;
    case 109: count = std::max(0, primitive.end_index() - primitive.start_index()); break;
    default: break;
    }
    return count == 0 ? 1 : count;
}

const dgGraphicalPrimitive* as_primitive(const dgGraphicalElement& element)
{
    return element.kind() == dgELEMENT_PRIMITIVE ? static_cast<const dgGraphicalPrimitive*>(&element) : nullptr;
}

int truncated(double value)
{
    return static_cast<int>(std::clamp(value, -2147483647.0, 2147483647.0));
}

std::unique_ptr<grTimingStats> new_ring(int n)
{
    if (n < 1)
        return nullptr;
    auto ring = std::make_unique<grTimingStats>();
    ring->init(n);
    return ring;
}

void record(grTimingStats* ring, double seconds)
{
    if (!ring)
        return;
    ring->current_stat()->set_times(seconds, grTimingStat::tnow());
    ring->forwards();
}
}

// Tells when drawing has taken longer than a time. The clock is read after each element; as drawing goes on behind it,
// the drawing is finished first whenever about a thirtieth of the time must have passed.
class grTimeoutRenderer::Stopwatch
{
public:
    Stopwatch(dgRenderer& renderer, double budget)
        : the_renderer(renderer), the_budget(budget), the_start(apHighResTime::time())
    {}

    int over(int primitives)
    {
        the_drawn += std::max(primitives, 1);
        const double now = seconds();
        if (now > the_budget)
            return 1;
        if (the_drawn < the_next_finish)
            return 0;
        the_renderer.finish();
        const double finished = seconds();
        if (finished > the_budget)
            return 1;
        double step = static_cast<double>(2 * (the_next_finish - the_last_finish));
        if (finished > 0)
            step = std::min(step, std::max(1.0, static_cast<double>(the_drawn) * the_budget / finished / 30));
        the_last_finish = the_drawn;
        the_next_finish = the_drawn + static_cast<long long>(step);
        return 0;
    }

    double seconds() const { return apHighResTime::time_diff(the_start, apHighResTime::time()); }
    double finished_seconds() const
    {
        the_renderer.finish();
        return seconds();
    }

private:
    dgRenderer& the_renderer;
    double the_budget;
    double the_start;
    long long the_drawn = 0;
    long long the_last_finish = 0;
    long long the_next_finish = 1000;
};

grTimeoutRenderer::grTimeoutRenderer(dgView* view, int nstats)
    : the_view(view), the_full_stats(new_ring(nstats)), the_twiddle_stats(new_ring(nstats))
{}

grTimeoutRenderer::~grTimeoutRenderer() = default;

void grTimeoutRenderer::get_ready(double budget, int a, int b, int c)
{
    if (std::abs(budget - the_budget) > same_budget)
        the_recalc_ratios = 1;
    the_budget = budget;
    the_weight_a = a;
    the_weight_b = b;
    the_weight_c = c;
    if (the_counted_root && edited())
        forget_measurements();
    count_structure();
}

void grTimeoutRenderer::count_structure()
{
    the_infos.clear();
    std::fill_n(the_count, n_categories, 0);
    the_total = 0;
    const dgStructure* root = the_view->root();
    the_counted_root = root;
    the_counted_stamp = root ? root->network_stamp() : 0;
    if (!root)
        return;
    gr_walk_network(*root, nullptr,
                    [this](const dgGraphicalElement& element)
                    {
                        if (const dgGraphicalPrimitive* primitive = as_primitive(element))
                        {
                            const grElementInfo info{primitive_count(*primitive), primitive->category(), 0};
                            the_infos.append(info);
                            the_count[info.category] += info.count;
                            the_total += info.count;
                        }
                        return 1;
                    });
    fill_run_lengths();
}

int grTimeoutRenderer::edited() const
{
    const dgStructure* root = the_view->root();
    return root != the_counted_root || (root && root->network_stamp() != the_counted_stamp);
}

// What was drawn of another network says nothing. Speeds and a time that was recorded stay.
void grTimeoutRenderer::forget_measurements()
{
    the_rates_measured = 0;
    the_drawn_elements = the_drawn_before = 0;
}

void grTimeoutRenderer::fill_run_lengths()
{
    for (int i = the_infos.count() - 1; i >= 0; --i)
    {
        const int continued = i + 1 < the_infos.count() && the_infos[i + 1].category == the_infos[i].category;
        the_infos[i].run_length = continued ? the_infos[i + 1].run_length + 1 : 0;
    }
}

void grTimeoutRenderer::calc_draw_ratios()
{
    the_recalc_ratios = 0;
    const double share = the_full_time > 0 ? std::min(1.0, the_budget / the_full_time) : 1.0;
    for (int k = 0; k < n_categories; ++k)
    {
        the_quota[k] = the_count[k] ? truncated(the_count[k] * share) : 0;
        the_ratio[k] = the_count[k] ? share : 0;
    }
    the_all_drawn = share == 1.0;
    if (the_all_drawn || (the_weight_a == 1 && the_weight_b == 1 && the_weight_c == 1))
        return;
    weight_quotas();
}

void grTimeoutRenderer::weight_quotas()
{
    struct Heavy
    {
        int category;
        int weight;
        long long quota; // a category of few primitives may have a rate that makes it enormous
    };
    // In the order in which they hand over what they cannot use.
    Heavy heavies[] = {{points, the_weight_a, 0}, {lines, the_weight_b, 0}, {triangles, the_weight_c, 0}};
    int weights = 0;
    double uniform_time = 0;
    for (const Heavy& heavy : heavies)
    {
        if (!the_count[heavy.category])
            continue;
        weights += heavy.weight;
        uniform_time += the_quota[heavy.category] / the_rate[heavy.category];
    }
    if (weights == 0)
        return;
    const double time = std::min(the_budget, uniform_time);
    for (Heavy& heavy : heavies)
        if (the_count[heavy.category])
            heavy.quota = truncated(static_cast<double>(heavy.weight) / weights * time * the_rate[heavy.category]);

    for (const Heavy& giver : heavies)
    {
        const long long spare = giver.quota - the_count[giver.category];
        if (spare <= 0 || !the_count[giver.category])
            continue;
        const double seconds = static_cast<double>(spare) / the_rate[giver.category];
        int takers = 0;
        for (const Heavy& heavy : heavies)
            takers += &heavy != &giver && the_count[heavy.category];
        for (Heavy& heavy : heavies)
            if (&heavy != &giver && the_count[heavy.category])
                heavy.quota += truncated((takers == 2 ? 0.5 : 1.0) * seconds * the_rate[heavy.category]);
    }

    for (const Heavy& heavy : heavies)
    {
        const int count = the_count[heavy.category];
        const int quota = static_cast<int>(std::min<long long>(heavy.quota, count));
        the_quota[heavy.category] = quota;
        the_ratio[heavy.category] = quota ? static_cast<double>(quota) / count : 0;
    }
}

void grTimeoutRenderer::calc_averages(double seconds)
{
    the_rates_measured = 1;
    the_recalc_ratios = 1;
    const int others = the_total - the_count[triangles];
    const double overall = others && the_count[triangles]
                               ? others / std::max(shortest_time, seconds - the_time[triangles])
                               : the_total / seconds;
    for (double& rate : the_rate)
        if (rate == 0.0)
            rate = overall;
}

void grTimeoutRenderer::erase()
{
    const grView* companion = grView::contains(the_view);
    if (!companion || companion->background() != grVIEW_BACKGROUND_TRANSPARENT)
        the_view->erase(dgERASE_ZBUFFER_YES);
}

int grTimeoutRenderer::visible() const
{
    const grView* companion = grView::contains(the_view);
    return the_view->root() && !(companion && companion->hidden());
}

void grTimeoutRenderer::begin()
{
    the_view->renderer()->select_driver(0);
    if (!the_view->user_clip_planes())
        the_view->camera().clip_bounding_box(the_view->root()->bounding_box(), the_view->clipping_mode());
    the_view->begin();
}

void grTimeoutRenderer::end()
{
    the_view->end();
}

void grTimeoutRenderer::refresh_draw()
{
    dgRenderer* renderer = the_view->renderer();
    if (!renderer)
        return;
    renderer->select_buffer(dgBACK_BUFFER);
    if (the_view->root() && edited())
    {
        forget_measurements();
        count_structure();
    }
    if (the_rates_measured && the_drawn_elements == the_drawn_before)
    {
        pre_calc_refresh(0);
        return;
    }
    the_rates_measured = 0;
    the_drawn_before = the_drawn_elements;
    the_drawn_elements = 0;
    the_walk_finished = 0;
    Stopwatch stopwatch(*renderer, the_budget);
    erase();
    if (visible())
    {
        begin();
        const int drawn = refresh_draw_elements(*renderer, stopwatch);
        if (drawn > 0)
        {
            const double estimate =
                std::max(shortest_time, static_cast<double>(the_total) / drawn * stopwatch.finished_seconds());
            if (!the_full_time_recorded)
                the_full_time = estimate;
            calc_averages(estimate);
        }
        else
            renderer->draw_bounding_box(*the_view->root());
        end();
    }
    the_idle_position = the_drawn_elements;
}

// Walks the network and applies its attributes; draw gets each element that was counted, with what it counts as, and
// answers 0 to stop.
template <class Draw>
void grTimeoutRenderer::walk_elements(dgRenderer& renderer, Draw draw)
{
    int position = 0;
    gr_walk_network(*the_view->root(), &renderer,
                    [&](const dgGraphicalElement& element)
                    {
                        if (as_primitive(element))
                            return position < the_infos.count() ? draw(element, the_infos[position++]) : 0;
                        renderer.execute(element);
                        return 1;
                    });
}

// Answers the number of primitives drawn.
int grTimeoutRenderer::refresh_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch)
{
    int drawn = 0;
    gr_walk_network(*the_view->root(), &renderer,
                    [&](const dgGraphicalElement& element)
                    {
                        if (!as_primitive(element))
                        {
                            renderer.execute(element);
                            return stopwatch.over(0) ? 0 : 1;
                        }
                        if (the_drawn_elements == the_infos.count())
                            return 0;
                        renderer.execute(element);
                        const int count = the_infos[the_drawn_elements++].count;
                        drawn += count;
                        return stopwatch.over(count) ? 0 : 1;
                    });
    return drawn;
}

void grTimeoutRenderer::pre_calc_refresh(int idle)
{
    if (the_recalc_ratios)
        calc_draw_ratios();
    std::fill_n(the_seen, n_categories, 0);
    std::fill_n(the_drawn, n_categories, 0);
    if (!idle)
        erase();
    the_idle_position = the_all_drawn ? the_infos.count() : 0;
    the_walk_finished = 0;
    if (!visible())
        return;
    begin();
    dgRenderer& renderer = *the_view->renderer();
    if (!pre_draw_elements(renderer))
        renderer.draw_bounding_box(*the_view->root());
    end();
}

// Answers the number of elements drawn.
int grTimeoutRenderer::pre_draw_elements(dgRenderer& renderer)
{
    int drawn = 0;
    walk_elements(renderer,
                  [&](const dgGraphicalElement& element, const grElementInfo& info)
                  {
                      const int k = info.category;
                      the_seen[k] += info.count;
                      if (the_drawn[k] + info.count > the_quota[k] ||
                          the_ratio[k] < static_cast<double>(the_drawn[k]) / the_seen[k])
                          return 1;
                      renderer.execute(element);
                      the_drawn[k] += info.count;
                      ++drawn;
                      return 1;
                  });
    return drawn;
}

grIdleAction grTimeoutRenderer::idle_draw()
{
    dgRenderer* renderer = the_view->renderer();
    if (!renderer || !visible())
        return grIDLE_DONE;
    if (edited())
    {
        // What is seen is of a network that is no more.
        forget_measurements();
        count_structure();
        the_idle_position = 0;
        renderer->select_buffer(dgFRONT_BUFFER);
        erase();
    }
    if (the_idle_position >= the_infos.count())
        return grIDLE_DONE;
    renderer->select_buffer(dgFRONT_BUFFER);
    Stopwatch stopwatch(*renderer, the_budget);
    begin();
    the_idle_position = idle_draw_elements(*renderer, stopwatch);
    end();
    // So that what was ordered does not pile up before the next frame.
    renderer->finish();
    the_walk_finished = the_idle_position >= the_infos.count();
    return the_walk_finished ? grIDLE_DONE : grIDLE_AGAIN;
}

// Answers how many elements are drawn now.
int grTimeoutRenderer::idle_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch)
{
    int met = 0;
    walk_elements(renderer,
                  [&](const dgGraphicalElement& element, const grElementInfo& info)
                  {
                      if (++met <= the_idle_position)
                          return 1;
                      renderer.execute(element);
                      return stopwatch.over(info.count) ? 0 : 1;
                  });
    return std::max(met, the_idle_position);
}

void grTimeoutRenderer::end_twiddle_draw()
{
    dgRenderer* renderer = the_view->renderer();
    if (!renderer)
        return;
    renderer->select_buffer(dgBACK_BUFFER);
    std::fill_n(the_time, n_categories, 0.0);
    std::fill_n(the_prims, n_categories, 0);
    erase();
    if (!visible())
        return;
    if (edited())
        count_structure();
    begin();
    end_draw_elements(*renderer);
    end();
    for (int k = 0; k < n_categories; ++k)
        if (the_prims[k] > 0 && the_time[k] > 0)
            the_rate[k] = the_prims[k] / the_time[k];
    the_recalc_ratios = 1;
    the_idle_position = the_infos.count();
    the_walk_finished = 1;
}

void grTimeoutRenderer::end_draw_elements(dgRenderer& renderer)
{
    renderer.finish();
    double start = apHighResTime::time();
    int position = 0;
    gr_walk_network(*the_view->root(), &renderer,
                    [&](const dgGraphicalElement& element)
                    {
                        renderer.execute(element);
                        if (!as_primitive(element) || position >= the_infos.count())
                            return 1;
                        const grElementInfo& info = the_infos[position++];
                        the_prims[info.category] += info.count;
                        if (info.run_length > 0)
                            return 1;
                        renderer.finish();
                        const double now = apHighResTime::time();
                        the_time[info.category] += apHighResTime::time_diff(start, now);
                        start = now;
                        return 1;
                    });
}

void grTimeoutRenderer::full_refresh_time(double seconds)
{
    the_full_time = seconds;
    the_full_time_recorded = 1;
    the_recalc_ratios = 1;
    record(the_full_stats.get(), seconds);
}

void grTimeoutRenderer::twiddle_refresh_time(double seconds)
{
    record(the_twiddle_stats.get(), seconds);
}

void grTimeoutRenderer::reset()
{
    the_full_time_recorded = 0;
    the_rates_measured = 0;
}
