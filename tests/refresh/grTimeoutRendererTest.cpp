#include "grTimeoutRenderer.h"

#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgStructureCall.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"
#include "grTimingStat.h"
#include "grTimingStats.h"
#include "grView.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr int lines = 1, triangles = 2, points = 19;

dgTriangleBlock* block(int n)
{
    auto* made = new giTriBlock;
    for (int i = 0; i < 3; ++i)
        made->nodes().append(giPoint3(i, i % 2, 0));
    for (int i = 0; i < n; ++i)
        made->triangles().emplace_back(0, 1, 2);
    return new dgTriangleBlock(made, 1);
}

dgPolyline* line(int segments)
{
    return new dgPolyline(std::vector<giPoint3>(static_cast<std::size_t>(segments + 1)));
}

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
    // Draws a frame and answers what was drawn.
    long long frame(grTimeoutRenderer& renderer)
    {
        return drawn([&] { renderer.refresh_draw(); });
    }
    dgRef<dgStructure> root{new dgClientStructure};
};
}

TEST(grTimeoutRenderer, counts_primitives_by_category_through_calls)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(line(7));
    part->add(new dgPointSet(std::vector<giPoint3>(5)));
    scene.root->add(block(20));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(new dgStructureCall(part.get()));
    scene.root->add(block(0));
    scene.root->add(line(0));
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

TEST(grTimeoutRenderer, draws_in_order_until_the_time_is_over_then_a_share)
{
    Scene scene;
    scene.add(100, [] { return line(64); }); // 6.25 s in all
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(renderer.got_full_refresh_time(), 0);
    // 16 elements take exactly a second, which is not over yet.
    EXPECT_EQ(scene.frame(renderer), 17 * 64);
    EXPECT_EQ(renderer.got_full_refresh_time(), 1);
    EXPECT_DOUBLE_EQ(renderer.full_refresh_time(), 6.25);
    EXPECT_EQ(scene.frame(renderer), 17 * 64) << "the frame before drew none";
    EXPECT_EQ(scene.frame(renderer), 16 * 64) << "two equal frames make a share";
    EXPECT_EQ(renderer.quota(lines), 1024);
    EXPECT_DOUBLE_EQ(renderer.ratio(lines), 0.16);
    EXPECT_EQ(renderer.all_drawn(), 0);
    EXPECT_EQ(scene.frame(renderer), 16 * 64);
}

TEST(grTimeoutRenderer, a_thinned_frame_spreads_its_share_over_the_network)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    for (int i = 0; i < 2; ++i)
        renderer.refresh_draw();
    scene.scene.take_log();
    renderer.refresh_draw();
    // The ratio 0.16 is reached by one element of 1, 1 of 7, 2 of 13...: drawn / seen is compared before each.
    double drawn = 0;
    int expected = 0;
    for (int seen = 1; seen <= 100; ++seen)
        if (drawn + 1 <= 16 && 0.16 >= drawn / seen)
        {
            ++drawn;
            ++expected;
        }
    int found = 0;
    for (const std::string& entry : scene.scene.take_log())
        found += entry == "draw lines 64 of 1";
    EXPECT_EQ(found, expected);
}

TEST(grTimeoutRenderer, draws_everything_when_that_fits_the_time)
{
    Scene scene;
    scene.add(8, [] { return line(64); }); // half a second
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(0.5, 1, 1, 1);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(scene.frame(renderer), 512);
    EXPECT_EQ(renderer.all_drawn(), 1);
    EXPECT_EQ(renderer.quota(lines), 512);
    EXPECT_EQ(renderer.ratio(lines), 1.0);
    EXPECT_EQ(renderer.idle_draw(), grIDLE_DONE);
}

TEST(grTimeoutRenderer, weights_share_the_time_and_hand_over_what_cannot_be_used)
{
    // All rates are 1024 a second, as the end of a twiddle measures them.
    const struct
    {
        const char* name;
        int n_points, n_lines, n_triangles; // primitives
        int a, b, c;
        int quota_points, quota_lines, quota_triangles;
    } cases[] = {
        // Budget 1 s; the uniform quotas take T <= 1 s.
        {"the time is divided by weight", 2048, 2048, 4096, 1, 1, 2, 256, 256, 512},
        {"a weight of a missing category does not count", 0, 4096, 4096, 5, 3, 1, 0, 768, 256},
        {"equal weights other than 1 are weighted", 2048, 2048, 4096, 2, 2, 2, 341, 341, 341},
        {"points hand over half each", 64, 4096, 4096, 14, 1, 1, 64, 63 + 415, 63 + 415},
        {"lines hand all to the only other one", 0, 128, 8064, 1, 7, 1, 0, 128, 128 + 768},
    };
    for (const auto& c : cases)
    {
        Scene scene;
        for (int i = 0; i < c.n_points / 32; ++i)
            scene.root->add(new dgPointSet(std::vector<giPoint3>(32)));
        scene.add(c.n_lines / 32, [] { return line(32); });
        scene.add(c.n_triangles / 32, [] { return block(32); });
        grTimeoutRenderer renderer(&scene.view(), 0);
        renderer.get_ready(1, c.a, c.b, c.c);
        renderer.end_twiddle_draw();
        renderer.full_refresh_time(scene.root->nelements() / 32.0);
        for (int i = 0; i < 3; ++i)
            renderer.refresh_draw();
        EXPECT_EQ(renderer.quota(points), c.quota_points) << c.name;
        EXPECT_EQ(renderer.quota(lines), c.quota_lines) << c.name;
        EXPECT_EQ(renderer.quota(triangles), c.quota_triangles) << c.name;
        if (c.n_lines)
        {
            EXPECT_DOUBLE_EQ(renderer.ratio(lines), static_cast<double>(c.quota_lines) / c.n_lines) << c.name;
        }
    }
}

TEST(grTimeoutRenderer, skips_an_element_above_the_quota_and_draws_the_box_when_nothing_is_left)
{
    Scene scene;
    scene.root->add(line(4096));
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(scene.frame(renderer), 4096) << "time is read behind an element";
    EXPECT_EQ(scene.frame(renderer), 4096);
    scene.scene.take_log();
    EXPECT_EQ(scene.frame(renderer), 12) << "edges of the box";
    EXPECT_EQ(scene.scene.take_log().back(), "draw_segments 12");
}

TEST(grTimeoutRenderer, idle_time_draws_the_rest_into_the_front_buffer)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    const auto idle = [&]
    {
        std::vector<long long> calls;
        grIdleAction action = grIDLE_AGAIN;
        while (action != grIDLE_DONE && calls.size() < 100)
            calls.push_back(scene.drawn([&] { action = renderer.idle_draw(); }));
        return calls;
    };
    renderer.refresh_draw();
    scene.scene.take_log();
    // 17 are drawn; 83 are left: 4 times 17 and 15.
    EXPECT_EQ(idle(), (std::vector<long long>{17 * 64, 17 * 64, 17 * 64, 17 * 64, 15 * 64}));
    EXPECT_EQ(scene.scene.take_log().front(), "select_buffer front");
    EXPECT_EQ(scene.drawn([&] { renderer.idle_draw(); }), 0);
    renderer.refresh_draw();
    renderer.refresh_draw();
    long long after_share = 0;
    for (const long long drawn : idle())
        after_share += drawn;
    EXPECT_EQ(after_share, 6400) << "a share leaves gaps everywhere";
}

TEST(grTimeoutRenderer, applies_attributes_of_what_it_leaves_out)
{
    Scene scene;
    scene.add(40, [] { return line(64); });
    scene.root->add(new dgLineWidth(5));
    scene.root->add(line(64));
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    renderer.refresh_draw();
    scene.window().record_state(1);
    renderer.idle_draw();
    scene.scene.take_log();
    renderer.idle_draw();
    std::string state, last_state;
    for (const std::string& entry : scene.scene.take_log())
    {
        if (entry.rfind("state", 0) == 0)
            state = entry;
        if (entry.rfind("draw", 0) == 0)
            last_state = state;
    }
    EXPECT_NE(last_state.find("state line 1 1 1 5 "), std::string::npos);
}

TEST(grTimeoutRenderer, measures_each_category_at_the_end_of_a_twiddle)
{
    Scene scene;
    scene.add(4, [] { return line(64); });
    scene.add(4, [] { return block(128); });
    scene.add(4, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(scene.drawn([&] { renderer.end_twiddle_draw(); }), 1024);
    EXPECT_DOUBLE_EQ(renderer.rate(lines), 1024);
    EXPECT_DOUBLE_EQ(renderer.rate(triangles), 1024);
    EXPECT_EQ(renderer.rate(points), 0) << "there are none";
    scene.window().cost_per_feature(0);
    renderer.end_twiddle_draw();
    EXPECT_DOUBLE_EQ(renderer.rate(lines), 1024) << "no time says nothing";
}

TEST(grTimeoutRenderer, measures_again_after_a_reset_and_recalculates_for_another_budget)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    for (int i = 0; i < 3; ++i)
        renderer.refresh_draw();
    renderer.get_ready(2, 1, 1, 1);
    EXPECT_EQ(scene.frame(renderer), 2048);
    renderer.reset();
    EXPECT_EQ(renderer.got_full_refresh_time(), 0);
    EXPECT_EQ(scene.frame(renderer), 33 * 64) << "until two seconds are over";
}

TEST(grTimeoutRenderer, follows_an_edit_in_the_middle_of_a_twiddle)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    for (int i = 0; i < 3; ++i)
        renderer.refresh_draw();
    scene.root->delete_range(8, 99);
    EXPECT_EQ(scene.frame(renderer), 512);
    EXPECT_EQ(renderer.total(), 512);
    EXPECT_EQ(renderer.idle_draw(), grIDLE_DONE);
}

TEST(grTimeoutRenderer, an_edit_between_idle_calls_starts_the_picture_anew)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    renderer.refresh_draw();
    EXPECT_EQ(renderer.idle_draw(), grIDLE_AGAIN);
    scene.root->delete_range(8, 99);
    scene.scene.take_log();
    EXPECT_EQ(scene.drawn([&] { EXPECT_EQ(renderer.idle_draw(), grIDLE_DONE); }), 512);
    EXPECT_EQ(scene.scene.take_log()[1], "clear 0 0 99 99 colour depth");
}

TEST(grTimeoutRenderer, measures_a_network_again_that_was_edited_between_twiddles)
{
    Scene scene;
    scene.root->add(line(64));
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    for (int i = 0; i < 3; ++i)
        renderer.refresh_draw();
    scene.add(99, [] { return line(64); });
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(renderer.got_full_refresh_time(), 0) << "that of one line would pass for that of a hundred";
    EXPECT_EQ(scene.frame(renderer), 17 * 64);
    EXPECT_DOUBLE_EQ(renderer.full_refresh_time(), 6.25);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(renderer.got_full_refresh_time(), 1) << "an unchanged one stays known";
}

TEST(grTimeoutRenderer, hidden_and_empty_views_take_no_time)
{
    Scene scene;
    scene.add(100, [] { return line(64); });
    grView companion(&scene.view());
    companion.hidden(1);
    grTimeoutRenderer renderer(&scene.view(), 0);
    renderer.get_ready(1, 1, 1, 1);
    EXPECT_EQ(scene.frame(renderer), 0);
    EXPECT_EQ(renderer.got_full_refresh_time(), 0);
    EXPECT_EQ(renderer.idle_draw(), grIDLE_DONE);
    companion.hidden(0);
    scene.view().root(nullptr);
    EXPECT_EQ(scene.frame(renderer), 0);
    EXPECT_EQ(scene.drawn([&] { renderer.end_twiddle_draw(); }), 0);
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
