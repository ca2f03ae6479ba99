#include "apClockOverride.h"
#include "dgAppElement.h"
#include "dgBackSurfaceColour.h"
#include "dgCameraIndex.h"
#include "dgClientStructure.h"
#include "dgCompiledStructure.h"
#include "dgLineColour.h"
#include "dgLineWidth.h"
#include "dgPointSet.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTraceWindow.h"
#include "dgTransform.h"
#include "dgTriangleOrder.h"
#include "dgView.h"
#include "gsStructureCallibration.h"
#include "gsStructureFlattener.h"
#include "gsStructureSkipper.h"
#include "gsStructureSlicer.h"
#include "tsRandomNetwork.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace
{
using Lines = std::vector<std::string>;

struct Scene
{
    dgTraceWindow window{100, 100};
    dgRenderer renderer{&window, nullptr};
    dgView view{&renderer};
    dgRef<dgStructure> root{new dgClientStructure};

    Scene() { view.root(root.get()); }
    void add(dgGraphicalElement* element) { root->add(element); }
    // A structure of one element, called under a line width.
    void call(dgGraphicalElement* element, double width)
    {
        const dgRef<dgStructure> part(new dgClientStructure);
        part->add(new dgLineWidth(width));
        part->add(element);
        add(new dgStructureCall(part.get()));
    }
    // Large blocks and lines, and many small ones of both, in 4 runs. 42300 primitives.
    void fill()
    {
        add(ts_block(20000));
        add(ts_block(2000));
        for (int i = 0; i < 100; ++i)
            add(ts_block(100));
        add(ts_line(5000));
        for (int i = 0; i < 5000; ++i)
            add(ts_line(1));
        add(new dgPointSet(std::vector<giPoint3>(200)));
        call(ts_block(100), 2);
    }
    static constexpr int filled = 42300;

    long long draw(gsRenderAction& action, dgStructure* structure = nullptr)
    {
        window.reset_features_drawn();
        renderer.render_action(&action);
        view.render_network(structure);
        renderer.render_action(nullptr);
        return window.features_drawn();
    }
    Lines log(dgStructure* structure = nullptr)
    {
        window.clear_log();
        view.render_network(structure);
        return window.log();
    }
};

// Every drawing with the state and the transform that it comes under.
Lines drawings(const Lines& log)
{
    Lines found;
    std::string state, transform;
    for (const std::string& entry : log)
    {
        if (entry.rfind("state", 0) == 0)
            state = entry;
        else if (entry.rfind("transform", 0) == 0)
            transform = entry;
        else if (entry.rfind("draw", 0) == 0)
        {
            // Lines do not look at surface colours.
            const std::size_t surface =
                entry.find("lines") != std::string::npos ? state.find(" surface") : state.size();
            found.push_back(entry + " " + state.substr(0, surface) + " " + transform);
        }
    }
    return found;
}
}

TEST(dgRunSampling, takes_every_feature_once_and_every_prefix_evenly)
{
    Scene scene;
    scene.fill();
    for (const dgCompiledStructure::Step& step : scene.root->compiled().steps())
    {
        if (!step.run)
            continue;
        const dgRunSampling& sampling = step.run->sampling();
        const int n = sampling.features();
        std::vector<int> taken(static_cast<std::size_t>(n), 0);
        const int cuts[] = {0, n / 7, n / 3, n / 2, n};
        for (int i = 0; i + 1 < 5; ++i)
        {
            std::vector<dgFeatureSpan> spans;
            sampling.sample(cuts[i], cuts[i + 1], spans);
            int count = 0;
            for (const dgFeatureSpan& span : spans)
            {
                count += span.count;
                for (int f = span.first; f < span.first + span.count; ++f)
                    ++taken[static_cast<std::size_t>(f)];
            }
            EXPECT_EQ(count, cuts[i + 1] - cuts[i]);
        }
        EXPECT_EQ(std::count(taken.begin(), taken.end(), 1), n);
    }
}

TEST(dgRunSampling, takes_chunks_of_a_block_evenly_spread_behind_its_large_triangles)
{
    for (const int count : {2, 7, 100, 1000, 3907})
    {
        Scene scene;
        dgTriangleBlock* const whole = ts_block(count * 256);
        scene.add(whole);
        EXPECT_EQ(whole->large_triangle_count(), 0);
        giTriBlock& mesh = whole->block();
        mesh.nodes().append(giPoint3(30, 0, 0));
        mesh.triangles()[500] = giTriangle(0, 1, 3);
        whole->block_changed();
        ASSERT_EQ(whole->large_triangle_count(), 1); // one chunk is taken before all others
        for (int taken = 1; taken < count - 1; taken = taken * 3 + 1)
        {
            std::vector<dgFeatureSpan> spans;
            scene.root->compiled().steps()[0].run->sampling().sample(0, (taken + 1) * 256, spans);
            std::vector<int> places;
            for (const dgFeatureSpan& span : spans)
                for (int first = span.first; first < span.first + span.count; first += 256)
                    places.push_back(first / 256);
            ASSERT_EQ(places.size(), static_cast<std::size_t>(taken + 1));
            EXPECT_EQ(places[0], 0);
            int gap = count - places.back() + places[1]; // round the end
            for (std::size_t i = 2; i < places.size(); ++i)
                gap = std::max(gap, places[i] - places[i - 1]);
            // Golden section: the widest gap is below 2.62 times the mean.
            EXPECT_LE(gap, 2.7 * count / taken + 2) << count << " " << taken;
        }
    }
}

TEST(dg_large_triangles, are_those_of_more_than_four_times_the_mean_area)
{
    const std::vector<giPoint3> points{{0, 0, 0}, {0.01, 0, 0}, {0, 0.01, 0}, {0.1, 0, 0}, {0, 0.1, 0}};
    std::vector<giTriangle> triangles(1000, giTriangle{0, 1, 2});
    dgGeometry geometry;
    geometry.points = points.data();
    geometry.npoints = 5;
    geometry.triangles = triangles.data();
    geometry.nfeatures = 1000;
    EXPECT_EQ(dg_large_triangles(geometry), std::vector<unsigned>());
    triangles[0] = giTriangle{0, 1, 4};   // 10 times the area
    triangles[700] = giTriangle{0, 3, 4}; // 100 times
    EXPECT_EQ(dg_large_triangles(geometry), (std::vector<unsigned>{700, 0}));
    triangles[5] = giTriangle{0, 99, 4}; // a node that does not exist
    EXPECT_EQ(dg_large_triangles(geometry), (std::vector<unsigned>{700, 0}));
    for (geometry.npoints = 4; geometry.npoints > 0; geometry.npoints -= 3) // nor do those of the large triangles then
        EXPECT_EQ(dg_large_triangles(geometry), std::vector<unsigned>());
}

TEST(dgRunSampling, spreads_small_primitives_over_the_whole_run)
{
    Scene scene;
    for (int i = 0; i < 10000; ++i)
        scene.add(ts_block(100));
    std::vector<dgFeatureSpan> spans;
    const dgRunSampling& sampling = scene.root->compiled().steps()[0].run->sampling();
    sampling.sample(0, 200000, spans); // a fifth
    int in_tenth[10] = {};
    for (const dgFeatureSpan& span : spans)
        in_tenth[span.first / 100000] += span.count;
    for (const int count : in_tenth)
        EXPECT_NEAR(count, 20000, 400); // two units of two elements
}

TEST(gsStructureSkipper, draws_the_share_and_the_same_every_time)
{
    Scene scene;
    scene.fill();
    for (const double ratio : {0.0, 0.01, 0.25, 0.5, 0.9, 1.0})
    {
        gsStructureSkipper skipper(Scene::filled, ratio);
        EXPECT_NEAR(static_cast<double>(scene.draw(skipper)), ratio * Scene::filled, ratio == 0 || ratio == 1 ? 0 : 101)
            << ratio;
        scene.window.clear_log();
        scene.draw(skipper);
        const Lines first = scene.window.log();
        scene.window.clear_log();
        scene.draw(skipper);
        EXPECT_EQ(first, scene.window.log()) << ratio;
    }
}

TEST(gsStructureSkipper, leaves_out_whole_small_structures_evenly)
{
    Scene scene;
    for (int i = 0; i < 1000; ++i)
        scene.call(ts_block(100), 1 + i % 2);
    gsStructureSkipper skipper(100000, 0.3);
    EXPECT_NEAR(static_cast<double>(scene.draw(skipper)), 30000, 500);
}

// Without culling every run is met.
TEST(gsRenderAction, counts_what_it_passes_by_as_if_it_were_met)
{
    class Skipper : public gsStructureSkipper
    {
    public:
        explicit Skipper(double ratio) : gsStructureSkipper(1000, ratio) {}
        void run(dgRenderer& renderer, const dgPrimitiveRun& run) override
        {
            const long long before = prims_drawn();
            gsStructureSkipper::run(renderer, run);
            in_vain += prims_drawn() == before;
        }
        int passes_by(dgTopology topology, int features, int runs) override
        {
            const int passed = gsStructureSkipper::passes_by(topology, features, runs);
            in_a_row = std::max(in_a_row, passed);
            return passed;
        }
        int in_vain = 0, in_a_row = 0;
    };
    int met_in_vain[2] = {}, passed_in_a_row = 0;
    const dgRef<dgStructure> nothing(new dgClientStructure);
    for (unsigned number = 0; number < 60; ++number)
    {
        tsRandomNetwork network(number);
        for (int i = 0; i < 200; ++i)
        {
            network.root()->add(new dgLineWidth(1 + i % 3));
            network.root()->add(ts_line(i % 150 ? 2 : 5));
        }
        for (int edits = 0; edits < 3; ++edits, network.edit())
        {
            Lines logs[2];
            const double ratio = network.real(0, 0.5), frame = network.real(0.01, 1);
            for (const int culling : {0, 1})
            {
                apClockOverride clock;
                Scene scene;
                scene.renderer.culling(culling);
                scene.view.root(network.root());
                scene.view.view_bbox();
                scene.view.camera().zoom(4);
                scene.window.cost_per_feature(1 / 1024.0);
                scene.window.record_state(1);
                scene.view.camera().zoom(0.01);
                Skipper close(ratio);
                scene.draw(close);
                scene.view.camera().zoom(100);
                scene.window.clear_log();
                for (const double part : {1, 1, 2})
                {
                    Skipper skipper(ratio / part);
                    scene.draw(skipper);
                    EXPECT_TRUE(part > 1 || skipper.prims_drawn() == close.prims_drawn()) << "whatever is in view";
                    met_in_vain[culling] += skipper.in_vain;
                    passed_in_a_row = std::max(passed_in_a_row, skipper.in_a_row);
                }
                gsStructureCallibration calibration(frame);
                scene.draw(calibration);
                gsStructureSlicer slicer(50);
                for (int slice = 0; slice < 3; ++slice)
                {
                    slicer.next_slice();
                    scene.draw(slicer);
                    scene.draw(slicer, nothing.get()); // the next one starts at the beginning
                }
                logs[culling] = drawings(scene.window.log());
                logs[culling].push_back(std::to_string(calibration.prims_total(0)) + " " +
                                        std::to_string(calibration.prims_total(1)));
            }
            ASSERT_EQ(logs[0], logs[1]) << number << " " << edits;
        }
    }
    EXPECT_EQ(met_in_vain[1], 0);
    EXPECT_GT(met_in_vain[0], 0);
    EXPECT_GT(passed_in_a_row, 20);
}

TEST(gsStructureSlicer, slices_together_draw_everything_once)
{
    Scene scene;
    scene.fill();
    gsStructureSlicer slicer(5000);
    long long drawn = 0;
    int slices = 0;
    while (slicer.another_slice_needed())
    {
        slicer.next_slice();
        const long long slice = scene.draw(slicer);
        EXPECT_LE(slice, 5000);
        drawn += slice;
        ++slices;
    }
    EXPECT_EQ(drawn, Scene::filled);
    EXPECT_EQ(slices, 9);
}

TEST(gsStructureSlicer, goes_on_where_it_stands_until_the_network_changes)
{
    class Counter : public gsStructureSlicer
    {
    public:
        Counter() : gsStructureSlicer(30) {}
        void run(dgRenderer& renderer, const dgPrimitiveRun& run) override
        {
            ++met;
            gsStructureSlicer::run(renderer, run);
        }
        int met = 0;
    };
    Scene scene;
    for (int i = 0; i < 20; ++i)
    {
        const dgRef<dgStructure> part(new dgClientStructure);
        part->add(new dgLineWidth(i));
        part->add(ts_line(10));
        scene.add(new dgStructureCall(part.get()));
    }
    Counter slicer;
    scene.renderer.culling(0); // nothing is passed by
    std::vector<int> met;
    const auto draw = [&]
    {
        slicer.met = 0;
        slicer.next_slice();
        scene.draw(slicer);
        met.push_back(slicer.met);
    };
    draw();
    draw();
    scene.add(ts_line(10));
    draw();
    draw();
    EXPECT_EQ(met, (std::vector<int>{4, 4, 10, 4})); // three whole ones, and the first of the next slice
}

TEST(gsStructureSlicer, ends_on_a_network_without_primitives)
{
    Scene scene;
    gsStructureSlicer slicer(10);
    slicer.next_slice();
    scene.draw(slicer);
    EXPECT_EQ(slicer.another_slice_needed(), 0);
}

TEST(gsStructureCallibration, counts_both_kinds_and_stops_inside_a_primitive)
{
    apClockOverride clock;
    Scene scene;
    scene.add(ts_block(100000));
    scene.add(ts_line(300000));
    scene.window.cost_per_feature(1 / 1024.0); // 1024 primitives a second
    gsStructureCallibration calibration(10);
    scene.window.clear_log();
    const long long drawn = scene.draw(calibration);
    const Lines& log = scene.window.log();
    // Behind the first one, one more as the sample grows, some of three quarters of the time left, and the last.
    EXPECT_LE(std::count(log.begin(), log.end(), "finish"), 8);
    EXPECT_EQ(calibration.prims_total(1), 100000);
    EXPECT_EQ(calibration.prims_total(0), 300000);
    EXPECT_EQ(calibration.prims_drawn(0) + calibration.prims_drawn(1), drawn);
    // No sooner than the time is over, and little later.
    EXPECT_GE(drawn, 10240);
    EXPECT_LE(drawn, 10240 + 11);
    EXPECT_DOUBLE_EQ(calibration.elapsed_time(), static_cast<double>(drawn) / 1024);
    // An even sample: lines have three quarters of it, though they come last.
    EXPECT_NEAR(static_cast<double>(calibration.prims_drawn(0)) / static_cast<double>(drawn), 0.75, 0.02);
    calibration.start_network(scene.renderer, nullptr);
    calibration.passes_by(dgTOPOLOGY_LINES, 2000000000, 2); // a large line called twice
    EXPECT_EQ(calibration.prims_total(0), 4000000000);
}

TEST(gsStructureCallibration, finishes_drawing_before_it_reads_the_clock)
{
    Scene scene;
    scene.add(ts_block(10));
    gsStructureCallibration calibration(-1);
    scene.window.clear_log();
    scene.draw(calibration);
    const Lines& log = scene.window.log();
    ASSERT_GE(log.size(), 2u);
    EXPECT_EQ(log[log.size() - 2], "finish");
}

TEST(gsStructureCallibration, draws_in_what_is_left_of_a_frame_that_waits_for_other_work)
{
    Scene scene;
    scene.add(ts_block(100000));
    scene.window.cost_per_feature(1 / 1024.0);
    for (const double wait : {0.0, 4.0, 40.0})
    {
        apClockOverride clock;
        gsStructureCallibration calibration(10);
        scene.window.cost_of_waiting(wait);
        scene.window.clear_log();
        EXPECT_NEAR(static_cast<double>(scene.draw(calibration)), 1024 * (10 - std::min(wait, 5.0)), 11) << wait;
        EXPECT_LE(std::count(scene.window.log().begin(), scene.window.log().end(), "finish"), 10) << wait;
    }
}

TEST(gsStructureFlattener, writes_primitives_of_different_structures_into_one_run)
{
    Scene scene;
    for (int i = 0; i < 10; ++i)
        scene.call(ts_line(2), 3);
    const dgRef<dgStructure> flat(new dgClientStructure);
    gsStructureFlattener flattener(scene.root.get(), flat.get(), -1);
    EXPECT_EQ(scene.draw(flattener), 20);
    EXPECT_EQ(flattener.final_refresh_non_flattened(), 0);
    EXPECT_EQ(flattener.flat_root_matches(), 1);
    EXPECT_EQ(scene.log(flat.get()), (Lines{"begin", "draw lines 20 of 10", "end"}));
}

TEST(gsStructureFlattener, keeps_states_and_places_and_takes_them_back)
{
    Scene scene;
    scene.renderer.culling(0);
    const dgRef<dgStructure> part(new dgClientStructure), inner(new dgClientStructure);
    inner->add(new dgTransform(giXform3::translation({0, 5, 0})));
    inner->add(new dgLineWidth(4));
    inner->add(ts_line(1));
    part->add(new dgTransform(giXform3::translation({7, 0, 0})));
    part->add(new dgLineColour(gsColour(1, 0, 0)));
    part->add(new dgStructureCall(inner.get()));
    part->add(ts_line(2));
    part->add(new dgBackSurfaceColour(gsColour(0, 1, 0)));
    part->add(ts_block(3));
    scene.add(new dgStructureCall(part.get()));
    scene.add(ts_line(3));
    scene.add(new dgSurfaceColour(gsColour(0, 0, 1)));
    scene.add(ts_block(4));

    const dgRef<dgStructure> flat(new dgClientStructure);
    gsStructureFlattener flattener(scene.root.get(), flat.get(), -1);
    scene.draw(flattener);
    scene.window.record_state(1);
    EXPECT_EQ(drawings(scene.log(flat.get())), drawings(scene.log()));
    EXPECT_EQ(drawings(scene.log()).size(), 5u);
    for (int i = 0; i < flat->nelements(); ++i)
        EXPECT_NE(flat->element(i)->type(), dgTYPE_STRUCTURE_CALL);
}

TEST(gsStructureFlattener, sees_edits_anywhere_in_the_network)
{
    Scene scene;
    const dgRef<dgStructure> part(new dgClientStructure);
    auto* width = new dgLineWidth(2);
    part->add(width);
    part->add(ts_line(1));
    scene.add(new dgStructureCall(part.get()));
    const dgRef<dgStructure> flat(new dgClientStructure);
    gsStructureFlattener flattener(scene.root.get(), flat.get(), -1);
    scene.draw(flattener);
    EXPECT_EQ(flattener.flat_root_matches(), 1);
    width->value(3);
    EXPECT_EQ(flattener.flat_root_matches(), 0);
    EXPECT_EQ(flattener.final_refresh_non_flattened(), 1);
}
