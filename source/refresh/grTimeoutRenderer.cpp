#include "grTimeoutRenderer.h"

#include "apHighResTime.h"
#include "dgGraphicalPrimitive.h"
#include "dgRenderer.h"
#include "dgSelectedDriver.h"
#include "dgTriangleBlock.h"
#include "dgView.h"
#include "grDrawQuotas.h"
#include "grFollowedShare.h"
#include "grNetworkSample.h"
#include "grNetworkWalk.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grUncovered.h"
#include "grView.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace
{
constexpr double same_budget = 1e-5;   // seconds
constexpr double shortest_time = 0.01; // seconds; below, clocks and small scenes give no useful speed

// Polylines and point sets in other forms of storage: by indices alone, or from one index up to another.
constexpr int indexed_polyline = 106, indexed_points = 107, polyline_range = 108, point_range = 109;

int primitive_count(const dgGraphicalPrimitive& primitive)
{
    int count = 1;
    switch (primitive.type())
    {
    case dgTYPE_TRIANGLE_BLOCK: count = static_cast<const dgTriangleBlock&>(primitive).triangle_count(); break;
    case dgTYPE_POLYLINE:
    case indexed_polyline: count = primitive.geometry().npoints - 1; break;
    case dgTYPE_POINT_SET:
    case indexed_points: count = primitive.geometry().npoints; break;
    case polyline_range: count = std::max(0, primitive.end_index() - primitive.start_index()) - 1; break;
    case point_range: count = std::max(0, primitive.end_index() - primitive.start_index()); break;
    default: break;
    }
    return count == 0 ? 1 : count;
}

const dgGraphicalPrimitive* as_primitive(const dgGraphicalElement& element)
{
    return element.kind() == dgELEMENT_PRIMITIVE ? static_cast<const dgGraphicalPrimitive*>(&element) : nullptr;
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

// Draws a view with its main driver for the life of the object, its planes fitted to the network.
class Drawing
{
public:
    // shows_see_through becomes whether something see-through was drawn.
    Drawing(dgView& view, bool& shows_see_through)
        : the_main_driver(*view.renderer(), 0), the_view(view), the_shows_see_through(shows_see_through)
    {
        if (!view.user_clip_planes())
            view.camera().clip_bounding_box(view.root()->bounding_box(), view.clipping_mode());
        view.begin();
    }
    ~Drawing()
    {
        the_view.end();
        the_shows_see_through = the_view.renderer() && the_view.renderer()->drew_see_through();
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

private:
    dgSelectedDriver the_main_driver;
    dgView& the_view;
    bool& the_shows_see_through;
};
}

// Tells when drawing has taken longer than a time. The clock is read after each element; as drawing goes on behind it,
// the drawing is finished first whenever about a thirtieth of the time must have passed.
class grTimeoutRenderer::Stopwatch
{
public:
    Stopwatch(dgRenderer& renderer, double budget)
        : the_renderer(renderer), the_budget(budget), the_start(apHighResTime::time())
    {}

    bool over(int primitives)
    {
        the_drawn += std::max(primitives, 1);
        const double now = seconds();
        if (now > the_budget)
            return true;
        if (the_drawn < the_next_finish)
            return false;
        the_renderer.finish();
        const double finished = seconds();
        if (finished > the_budget)
            return true;
        double step = static_cast<double>(2 * (the_next_finish - the_last_finish));
        if (finished > 0)
            step = std::min(step, std::max(1.0, static_cast<double>(the_drawn) * the_budget / finished / 30));
        the_last_finish = the_drawn;
        the_next_finish = the_drawn + static_cast<long long>(step);
        return false;
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
    : the_view(view), the_share(std::make_unique<grFollowedShare>()), the_full_stats(new_ring(nstats)),
      the_twiddle_stats(new_ring(nstats))
{}

grTimeoutRenderer::~grTimeoutRenderer() = default;

void grTimeoutRenderer::get_ready(double budget, int point_weight, int line_weight, int triangle_weight)
{
    if (std::abs(budget - the_budget) > same_budget)
        the_recalc_ratios = 1;
    the_budget = budget;
    the_point_weight = point_weight;
    the_line_weight = line_weight;
    the_triangle_weight = triangle_weight;
    if (the_counted_root && edited())
    {
        forget_measurements();
        forget_idle_place();
    }
    count_structure();
}

void grTimeoutRenderer::count_structure()
{
    the_infos.clear();
    if (edited())
        the_sample.reset();
    for (grElementCategory& category : the_categories)
        category.count = 0;
    the_total = 0;
    const dgStructure* root = the_view->root();
    the_counted_root = root;
    the_counted_stamp = the_view->shown_stamp();
    if (!root)
        return;
    gr_walk_network(*root, the_view->looks(), nullptr,
                    [this](const dgGraphicalElement& element)
                    {
                        if (const dgGraphicalPrimitive* primitive = as_primitive(element))
                        {
                            const grElementInfo info{primitive_count(*primitive), primitive->category(), 0};
                            the_infos.append(info);
                            of(info.category).count += info.count;
                            the_total += info.count;
                        }
                        return true;
                    });
    fill_run_lengths();
}

bool grTimeoutRenderer::edited() const
{
    const dgStructure* root = the_view->root();
    return root != the_counted_root || the_view->shown_stamp() != the_counted_stamp;
}

// What was drawn of another network says nothing. Speeds stay.
void grTimeoutRenderer::forget_measurements()
{
    reset();
    the_drawn_elements = the_drawn_before = 0;
}

void grTimeoutRenderer::forget_idle_place()
{
    the_idle_position = 0;
    the_idle_place.clear();
}

void grTimeoutRenderer::fill_run_lengths()
{
    for (int i = the_infos.count() - 1; i >= 0; --i)
    {
        const bool continued = i + 1 < the_infos.count() && the_infos[i + 1].category == the_infos[i].category;
        the_infos[i].run_length = continued ? the_infos[i + 1].run_length + 1 : 0;
    }
}

// Starts from the share that the time of everything lets expect.
void grTimeoutRenderer::calc_draw_ratios()
{
    look_at_view();
    if (std::exchange(the_recalc_ratios, 0))
    {
        the_share->start(the_full_time > 0 ? std::min(the_budget / the_full_time, 1.0) : 1.0);
        the_measured_share = the_share->share();
    }
    const double share = the_share->share();
    const grDrawWeights weights{the_point_weight, the_line_weight, the_triangle_weight};
    the_all_drawn = gr_set_draw_quotas(the_categories, weights,
                                       share == the_measured_share ? the_budget : share * the_full_time, the_full_time);
}

// What is hidden is not known to the sample.
void grTimeoutRenderer::look_at_view()
{
    const bool culled = the_view->renderer()->culling() && the_view->root() && !the_view->looks();
    if (culled && !the_sample)
        the_sample = std::make_unique<grNetworkSample>(*the_view->root(), grNetworkSample::BY_ELEMENT);
    the_share->part_in_view(culled ? the_sample->share_shown(*the_view) : 1);
}

void grTimeoutRenderer::calc_averages(double seconds)
{
    the_rates_measured = 1;
    the_recalc_ratios = 1;
    const grElementCategory& triangles = of(grTRIANGLE_CATEGORY);
    const auto total = static_cast<double>(the_total), others = static_cast<double>(the_total - triangles.count);
    const double overall =
        others != 0 && triangles.count ? others / std::max(shortest_time, seconds - triangles.time) : total / seconds;
    for (grElementCategory& category : the_categories)
        if (category.rate == 0.0)
            category.rate = overall;
}

void grTimeoutRenderer::erase()
{
    const grView* companion = grView::contains(the_view);
    if (!companion || companion->background() != grVIEW_BACKGROUND_TRANSPARENT)
        the_view->erase(dgERASE_ZBUFFER_YES);
}

bool grTimeoutRenderer::visible() const
{
    const grView* companion = grView::contains(the_view);
    return the_view->root() && !(companion && companion->hidden());
}

int grTimeoutRenderer::draws_anything() const
{
    return visible() && the_infos.count() > 0;
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
        draw_thinned_frame();
        return;
    }
    the_rates_measured = 0;
    the_drawn_before = the_drawn_elements;
    the_drawn_elements = 0;
    the_box_is_shown = false;
    Stopwatch stopwatch(*renderer, the_budget);
    erase();
    if (visible())
    {
        const Drawing drawing(*the_view, the_shows_see_through);
        const auto drawn = static_cast<double>(refresh_draw_elements(*renderer, stopwatch));
        if (drawn > 0)
        {
            const double estimate =
                std::max(shortest_time, static_cast<double>(the_total) / drawn * stopwatch.finished_seconds());
            if (!the_full_time_recorded)
                the_full_time = estimate;
            calc_averages(estimate);
        }
        else
            draw_box();
    }
    the_idle_position = the_drawn_elements;
}

// Walks the network and applies its attributes; draw gets each element that was counted, with what it counts as, and
// answers false to stop.
template <class Draw>
void grTimeoutRenderer::walk_elements(dgRenderer& renderer, Draw draw)
{
    int position = 0;
    gr_walk_network(*the_view->root(), the_view->looks(), &renderer,
                    [&](const dgGraphicalElement& element)
                    {
                        if (as_primitive(element))
                            return position < the_infos.count() && draw(element, the_infos[position++]);
                        renderer.execute(element);
                        return true;
                    });
}

// Answers the number of primitives drawn.
long long grTimeoutRenderer::refresh_draw_elements(dgRenderer& renderer, Stopwatch& stopwatch)
{
    long long drawn = 0;
    the_idle_place.clear();
    gr_walk_network(*the_view->root(), the_view->looks(), &renderer, the_idle_place,
                    [&](const dgGraphicalElement& element)
                    {
                        if (!as_primitive(element))
                        {
                            renderer.execute(element);
                            return !stopwatch.over(0);
                        }
                        if (the_drawn_elements == the_infos.count())
                            return false;
                        renderer.execute(element);
                        const int count = the_infos[the_drawn_elements++].count;
                        drawn += count;
                        return !stopwatch.over(count);
                    });
    return drawn;
}

// Stands for a network of which nothing was drawn, until something is.
void grTimeoutRenderer::draw_box()
{
    the_view->renderer()->draw_bounding_box(*the_view->root());
    the_box_is_shown = true;
}

void grTimeoutRenderer::draw_thinned_frame()
{
    const double start = apHighResTime::time();
    calc_draw_ratios();
    for (grElementCategory& category : the_categories)
        category.seen = category.drawn = 0;
    erase();
    the_box_is_shown = false;
    forget_idle_place();
    if (the_all_drawn)
        the_idle_position = the_infos.count();
    if (!visible())
        return;
    dgRenderer& renderer = *the_view->renderer();
    {
        const Drawing drawing(*the_view, the_shows_see_through);
        if (!draw_quotas(renderer))
            draw_box();
    }
    renderer.finish();
    const auto add = [](long long sum, const grElementCategory& category) { return sum + category.drawn; };
    const long long drawn = std::accumulate(the_categories.begin(), the_categories.end(), 0ll, add);
    if (the_measured_share < 1 && drawn > 0)
        the_share->frame_drawn(static_cast<double>(drawn) / static_cast<double>(the_total),
                               apHighResTime::time_diff(start, apHighResTime::time()) / the_budget);
}

// Answers the number of elements drawn.
int grTimeoutRenderer::draw_quotas(dgRenderer& renderer)
{
    int drawn = 0;
    walk_elements(renderer,
                  [&](const dgGraphicalElement& element, const grElementInfo& info)
                  {
                      grElementCategory& of_category = of(info.category);
                      of_category.seen += info.count;
                      if (of_category.drawn + info.count > of_category.quota ||
                          of_category.ratio <
                              static_cast<double>(of_category.drawn) / static_cast<double>(of_category.seen))
                          return true;
                      renderer.execute(element);
                      of_category.drawn += info.count;
                      ++drawn;
                      return true;
                  });
    return drawn;
}

// What is drawn later would lie over what is see-through.
int grTimeoutRenderer::idle_draw_needed() const
{
    return !(the_shows_see_through && !edited()) && the_view->renderer() && visible() &&
           (edited() || the_idle_position < the_infos.count()) && !gr_uncovered_boxes(*the_view).empty();
}

grIdleAction grTimeoutRenderer::idle_draw()
{
    if (!idle_draw_needed())
        return grIDLE_DONE;
    bool anew = the_box_is_shown;
    if (edited())
    {
        // What is seen is of a network that is no more.
        forget_measurements();
        count_structure();
        forget_idle_place();
        anew = true;
    }
    the_box_is_shown = false;
    dgRenderer& renderer = *the_view->renderer();
    renderer.select_buffer(dgFRONT_BUFFER);
    const std::vector<giBox2> boxes = gr_uncovered_boxes(*the_view);
    int end = the_infos.count(); // the first box tells how far the time reaches
    Stopwatch stopwatch(renderer, the_budget / static_cast<double>(boxes.size()));
    Stopwatch* time_left = &stopwatch;
    dgNetworkPlace place;
    gr_draw_in_boxes(*the_view, boxes,
                     [&]
                     {
                         if (anew)
                             erase();
                         const Drawing drawing(*the_view, the_shows_see_through);
                         place = the_idle_place;
                         end = idle_draw_elements(renderer, std::exchange(time_left, nullptr), place, end);
                     });
    the_idle_position = end;
    the_idle_place = std::move(place);
    // So that what was ordered does not pile up before the next frame.
    renderer.finish();
    return the_idle_position >= the_infos.count() ? grIDLE_DONE : grIDLE_AGAIN;
}

// Draws on from a place up to an element, or until the time is over if there is one; moves the place on and answers how
// many elements are drawn now.
int grTimeoutRenderer::idle_draw_elements(dgRenderer& renderer, Stopwatch* stopwatch, dgNetworkPlace& place, int end)
{
    int met = the_idle_position;
    gr_walk_network(*the_view->root(), the_view->looks(), &renderer, place,
                    [&](const dgGraphicalElement& element)
                    {
                        if (as_primitive(element) && met >= the_infos.count())
                            return false;
                        renderer.execute(element);
                        if (!as_primitive(element))
                            return true;
                        const int count = the_infos[met++].count;
                        return met < end && !(stopwatch && stopwatch->over(count));
                    });
    return met;
}

void grTimeoutRenderer::end_twiddle_draw()
{
    dgRenderer* renderer = the_view->renderer();
    if (!renderer)
        return;
    renderer->select_buffer(dgBACK_BUFFER);
    for (grElementCategory& category : the_categories)
    {
        category.time = 0;
        category.prims = 0;
    }
    erase();
    the_box_is_shown = false;
    if (!visible())
        return;
    if (edited())
        count_structure();
    {
        const Drawing drawing(*the_view, the_shows_see_through);
        end_draw_elements(*renderer);
    }
    for (grElementCategory& category : the_categories)
        if (category.prims > 0 && category.time > 0)
            category.rate = static_cast<double>(category.prims) / category.time;
    the_recalc_ratios = 1;
    the_idle_position = the_infos.count();
}

void grTimeoutRenderer::end_draw_elements(dgRenderer& renderer)
{
    renderer.finish();
    double start = apHighResTime::time();
    int position = 0;
    gr_walk_network(*the_view->root(), the_view->looks(), &renderer,
                    [&](const dgGraphicalElement& element)
                    {
                        renderer.execute(element);
                        if (!as_primitive(element) || position >= the_infos.count())
                            return true;
                        const grElementInfo& info = the_infos[position++];
                        of(info.category).prims += info.count;
                        if (info.run_length > 0)
                            return true;
                        renderer.finish();
                        const double now = apHighResTime::time();
                        of(info.category).time += apHighResTime::time_diff(start, now);
                        start = now;
                        return true;
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
