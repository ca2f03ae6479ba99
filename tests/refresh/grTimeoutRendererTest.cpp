#include "grTimeoutRenderer.h"

#include "dgOpacity.h"
#include "dgPointSet.h"
#include "dgStructureCall.h"
#include "grTimeoutRendererCache.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grView.h"
#include "grViewRefresherTimeout.h"
#include "tsHeavyView.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
constexpr int lines = 1, triangles = 2, points = 19;

// A polyline or point set in another form of storage.
class OtherForm : public dgGraphicalPrimitive
{
public:
    OtherForm(int type, int n, int start, int end)
        : dgGraphicalPrimitive(type), the_points(static_cast<std::size_t>(n)), the_start(start), the_end(end)
    {}
    OtherForm* copy() const override { return new OtherForm(*this); }
    dgGraphicalPrimitiveType primitive_type() const override { return dgPRIMITIVE_LINES; }
    dgGeometry geometry() const override
    {
        dgGeometry geometry;
        geometry.points = the_points.data();
        geometry.npoints = geometry.nfeatures = static_cast<int>(the_points.size());
        return geometry;
    }
    int start_index() const override { return the_start; }
    int end_index() const override { return the_end; }

private:
    std::vector<giPoint3> the_points;
    int the_start, the_end;
};

struct Scene : tsHeavyView
{
    Scene()
    {
        view().root(root.get());
        window().cost_per_feature(1 / 1024.0); // of 1024 primitives a second
    }
    template <class Make>
    void add(int n, Make make)
    {
        for (int i = 0; i < n; ++i)
            root->add(make());
    }
    dgRef<dgStructure> root{new dgClientStructure};
};
}

TEST(grTimeoutRenderer, draws_nothing_over_what_is_see_through)
{
    for (const double opacity : {1.0, 0.5})
    {
        Scene scene;
        scene.root->add(new dgOpacity(opacity));
        scene.add(100, [] { return ts_block(64); });
        grTimeoutRenderer renderer(&scene.view(), 0);
        renderer.get_ready(1, 1, 1, 1);
        const long long thinned = scene.drawn([&] { renderer.refresh_draw(); });
        EXPECT_GT(thinned, 0);
        const long long later = scene.drawn([&] { renderer.idle_draw(); });
        EXPECT_EQ(later > 0, opacity == 1) << opacity;
    }
}

TEST(grTimeoutRenderer, counts_primitives_by_category_through_calls)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(ts_line(7));
    part->add(new dgPointSet(std::vector<giPoint3>(5)));
    scene.root->add(ts_block(20));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(ts_block(0));
    scene.root->add(ts_line(0));
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(renderer.count(triangles), 20 + 1) << "nothing counts as 1";
    EXPECT_EQ(renderer.count(lines), 7 + 7 + 1);
    EXPECT_EQ(renderer.count(points), 5 + 5);
    EXPECT_EQ(renderer.total(), 46);
    scene.root->clear();
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(renderer.total(), 0);
}

TEST(grTimeoutRenderer, counts_other_forms_of_lines_and_points)
{
    const struct
    {
        int type, n, start, end, category, count;
    } cases[] = {
        {106, 9, 0, 0, lines, 8},   {107, 9, 0, 0, points, 9},  {108, 0, 3, 10, lines, 6},
        {109, 0, 3, 10, points, 7}, {108, 0, 3, 4, lines, 1},                              // 0 becomes 1
        {108, 0, 10, 3, lines, -1}, {109, 0, 10, 3, points, 1}, {106, 0, 0, 0, lines, -1}, // kept as they come
        {90, 9, 0, 0, 6, 1},
    };
    for (const auto& c : cases)
    {
        Scene scene;
        scene.root->add(new OtherForm(c.type, c.n, c.start, c.end));
        grTimeoutRenderer renderer(&scene.view(), 0);
        renderer.get_ready(1, 1, 1, 1);
        EXPECT_EQ(renderer.count(c.category), c.count) << c.type;
        EXPECT_EQ(renderer.total(), c.count) << c.type;
    }
}

TEST(grTimeoutRenderer, remembers_times_only_when_told_how_many)
{
    Scene scene;
    grTimeoutRenderer without(&scene.view(), 0), with(&scene.view(), 2);
    EXPECT_EQ(without.full_refresh_stats(), nullptr);
    without.full_refresh_time(3);
    without.twiddle_refresh_time(3);
    EXPECT_EQ(without.full_refresh_time(), 3);
    with.full_refresh_time(1);
    with.full_refresh_time(2);
    with.full_refresh_time(4);
    EXPECT_EQ(with.full_refresh_time(), 4) << "the latest counts";
    int count = 0;
    double average = 0;
    with.full_refresh_stats()->last_stats(1000, count, average);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(average, 3);
    with.twiddle_refresh_stats()->last_stats(1000, count, average);
    EXPECT_EQ(count, 0);
}

TEST(grViewRefresherTimeout, records_how_long_full_drawing_takes_and_forgets_it_with_an_edit)
{
    Scene scene;
    scene.add(100, [] { return ts_line(1024); });
    grTimeoutRendererCache cache(16);
    cache.record_refresh_stats(4);
    {
        grViewRefresherTimeout refresher({&scene.view()}, &cache, 1, 1, 1, 1);
        refresher.base_start_twiddle();
        refresher.base_end_twiddle();
    }
    grTimeoutRenderer& timeout = *cache.find_timeout_renderer(&scene.view());
    EXPECT_NEAR(timeout.full_refresh_time(), 100, 1e-9);
    EXPECT_EQ(timeout.got_full_refresh_time(), 1);
    scene.root->delete_range(1, 99);
    timeout.get_ready(1, 1, 1, 1);
    EXPECT_EQ(timeout.got_full_refresh_time(), 0);
}
