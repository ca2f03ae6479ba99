// Simplified levels: that they are the block with fewer triangles, fit together in any mix, and never stay in a picture
// that is complete.
#include "dgGLFit.h"
#include "dgGLGeometryStore.h"
#include "dgGLSimplify.h"
#include "grViewRefresherFast.h"
#include "grViewRendererFast.h"
#include "gsStructureSkipper.h"
#include "renderScene.h"
#include "tsShapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <tuple>
#include <vector>

namespace
{
using Place = std::tuple<float, float, float>;

Place place_of(const std::vector<float>& positions, std::uint32_t vertex)
{
    const float* p = &positions[std::size_t(3) * vertex];
    return {p[0], p[1], p[2]};
}

// Of all vertices that a level may be made of: those of the block, and its own.
std::vector<float> positions_of(const dgGLMesh& mesh, const dgGLLevel& level)
{
    std::vector<float> all = mesh.positions;
    all.insert(all.end(), level.positions.begin(), level.positions.end());
    return all;
}

// A surface over n by m squares, with vertices of its own for each square when they are not shared.
dgGLMesh surface(int n, int m, int shared, const std::function<giPoint3(double, double)>& point,
                 const std::function<giVector3(double, double)>& normal)
{
    dgGLMesh mesh;
    const auto add = [&](int i, int j)
    {
        const double u = double(i) / n, v = double(j) / m;
        const giPoint3 p = point(u, v);
        const giVector3 d = normal(u, v);
        for (const double value : {p.x(), p.y(), p.z()})
            mesh.positions.push_back(static_cast<float>(value));
        for (const double value : {d.x(), d.y(), d.z()})
            mesh.normals.push_back(static_cast<float>(value));
        return static_cast<std::uint32_t>(mesh.positions.size() / 3 - 1);
    };
    std::vector<std::uint32_t> grid;
    for (int i = 0; shared && i <= n; ++i)
        for (int j = 0; j <= m; ++j)
            grid.push_back(add(i, j));
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < m; ++j)
        {
            const auto corner = [&](int di, int dj)
            { return shared ? grid[std::size_t(i + di) * (m + 1) + std::size_t(j + dj)] : add(i + di, j + dj); };
            const std::uint32_t a = corner(0, 0), b = corner(1, 0), c = corner(1, 1), d = corner(0, 1);
            mesh.indices.insert(mesh.indices.end(), {a, b, c, a, c, d});
        }
    return mesh;
}

// Closed exactly: both ends of either turn are one place.
dgGLMesh ring(int n, int m, int shared)
{
    const auto wrapped = [](double turn) { return 6.283185307179586 * (turn == 1 ? 0 : turn); };
    return surface(
        n, m, shared,
        [&](double u, double v)
        {
            const double a = wrapped(u), b = wrapped(v), r = 3 + 0.3 * std::sin(7 * a);
            return giPoint3((10 + r * std::cos(b)) * std::cos(a), (10 + r * std::cos(b)) * std::sin(a),
                            r * std::sin(b));
        },
        [&](double u, double v)
        {
            const double a = wrapped(u), b = wrapped(v);
            return giVector3(std::cos(b) * std::cos(a), std::cos(b) * std::sin(a), std::sin(b));
        });
}

std::vector<dgGLLevel> levels_of(const dgGLMesh& mesh)
{
    return dg_gl_simplify(mesh, {});
}

// Whether each edge belongs to an odd number of triangles.
using Edges = std::map<std::pair<Place, Place>, int>;

void add_edges(const std::vector<float>& positions, const std::uint32_t* corners, Edges& edges)
{
    for (int i = 0; i < 3; ++i)
    {
        const Place from = place_of(positions, corners[i]), to = place_of(positions, corners[(i + 1) % 3]);
        edges[std::minmax(from, to)] ^= 1;
    }
}

int open_edges(const Edges& edges)
{
    return static_cast<int>(std::count_if(edges.begin(), edges.end(), [](const auto& edge) { return edge.second; }));
}

// A bulge over the window, of n by n squares.
dgTriangleBlock* bulge(int n)
{
    const double a = 6.0 / n, b = 4.8 / n; // 120 pixels, by 20 and by 25 a radian
    return new dgTriangleBlock(
        ts_sheet(
            n, 0, n,
            [=](int i, int j)
            { return giPoint3(120.0 * i / n, 120.0 * j / n, 30 * std::sin(a * i) * std::cos(b * j)); },
            [=](int i, int j) {
                return giVector3(-1.5 * std::cos(a * i) * std::cos(b * j), 1.2 * std::sin(a * i) * std::sin(b * j), 1);
            }),
        1);
}

struct Bulge : Scene
{
    explicit Bulge(int n = 100) : Scene(120, 120), block(bulge(n)), triangles(2 * n * n)
    {
        add(block);
        draw();
    }
    dgImage share(double ratio)
    {
        gsStructureSkipper skipper(triangles, ratio);
        view.erase(dgERASE_ZBUFFER_YES);
        renderer.render_action(&skipper);
        view.render_network(nullptr);
        renderer.render_action(nullptr);
        drawn = static_cast<int>(skipper.prims_drawn());
        return picture();
    }
    // Blocks of few triangles are simplified once they have been thinned twice.
    void make_levels()
    {
        for (int i = 0; i < 2; ++i)
            share(0.1);
        store().complete_levels();
    }
    dgGLGeometryStore& store() { return window.device().geometry(); }

    dgTriangleBlock* block;
    int triangles;
    int drawn = 0;
};

int pixels_off(const dgImage& a, const dgImage& b, int most)
{
    int count = 0;
    for (int y = 0; y < a.height; ++y)
        for (int x = 0; x < a.width; ++x)
        {
            const Pixel p = pixel_at(a, x, y), q = pixel_at(b, x, y);
            count += std::max({std::abs(p.red - q.red), std::abs(p.green - q.green), std::abs(p.blue - q.blue)}) > most;
        }
    return count;
}
}

TEST(dg_gl_simplify, any_mix_of_two_levels_is_closed_and_counts_as_it_says)
{
    for (const int shared : {1, 0})
    {
        // The shared one is large enough for two patches of a level with vertices of its own.
        const dgGLMesh mesh = shared ? ring(320, 200, 1) : ring(200, 120, 0);
        const std::vector<dgGLLevel> levels = levels_of(mesh);
        ASSERT_GE(levels.size(), 6u);
        EXPECT_TRUE(!shared || (levels[1].patches > 1 && !levels[1].positions.empty()));
        EXPECT_GT(levels[0].patches, 1u);
        EXPECT_LT(levels.back().triangles(), mesh.indices.size() / 3 / 50);
        for (std::size_t k = 0; k + 1 < levels.size(); ++k)
        {
            const dgGLLevel &fine = levels[k], &coarse = levels[k + 1];
            ASSERT_EQ(coarse.groups(), fine.patches);
            EXPECT_LT(coarse.triangles(), 0.8 * fine.triangles());
            const std::vector<float> fine_positions = positions_of(mesh, fine), positions = positions_of(mesh, coarse);
            for (unsigned patches = 0; patches <= fine.patches; ++patches)
            {
                Edges edges;
                for (unsigned group = 0; group < fine.groups(); ++group)
                    for (auto i = fine.start(group, 0); i < fine.start(group, patches); ++i)
                        add_edges(fine_positions, &fine.indices[std::size_t(3) * i], edges);
                for (auto i = coarse.start(patches, 0); i < coarse.triangles(); ++i)
                    add_edges(positions, &coarse.indices[std::size_t(3) * i], edges);
                EXPECT_EQ(open_edges(edges), 0) << "level " << k << ", " << patches << " patches";
            }
        }
    }
}

TEST(dg_gl_simplify, levels_are_off_by_about_as_much_as_they_say)
{
    const dgGLMesh mesh = ring(200, 120, 1);
    float before = 0;
    for (const dgGLLevel& level : levels_of(mesh))
    {
        EXPECT_GE(level.error, before);
        before = level.error;
        double largest = 0;
        const std::vector<float> positions = positions_of(mesh, level);
        for (std::size_t i = 0; i < level.indices.size(); i += 3)
        {
            double p[3] = {};
            for (std::size_t corner = 0; corner < 3; ++corner)
                for (std::size_t axis = 0; axis < 3; ++axis)
                    p[axis] += positions[std::size_t(3) * level.indices[i + corner] + axis] / 3.0;
            const double r = 3 + 0.3 * std::sin(7 * std::atan2(p[1], p[0]));
            largest = std::max(largest, std::abs(std::hypot(std::hypot(p[0], p[1]) - 10, p[2]) - r));
        }
        EXPECT_LT(largest, 2 * level.error + 0.01) << level.triangles();
    }
}

TEST(dg_gl_simplify, keeps_the_outline_by_which_blocks_meet)
{
    const auto bump = [](double u, double v) { return giPoint3(u, v, 0.1 * std::sin(9 * u) * std::cos(7 * v)); };
    const dgGLMesh mesh = surface(200, 200, 1, bump, [](double, double) { return giVector3(0, 0, 1); });
    const auto outline = [](const std::vector<float>& positions, const std::vector<std::uint32_t>& indices)
    {
        Edges edges;
        for (std::size_t i = 0; i < indices.size(); i += 3)
            add_edges(positions, &indices[i], edges);
        std::erase_if(edges, [](const auto& edge) { return edge.second == 0; });
        return edges;
    };
    const Edges whole = outline(mesh.positions, mesh.indices);
    EXPECT_EQ(whole.size(), 800u);
    const std::vector<dgGLLevel> levels = levels_of(mesh);
    for (const std::size_t k : {1, 2})
        EXPECT_EQ(outline(positions_of(mesh, levels.at(k)), levels[k].indices), whole);
    EXPECT_FALSE(levels[2].positions.empty());
}

TEST(dg_gl_simplify, corners_keep_the_normals_of_their_side_of_a_crease)
{
    // A roof: two flat sides, whose vertices along the ridge lie in the same places.
    const auto side = [](int sign)
    {
        return surface(
            64, 64, 1, [sign](double u, double v) { return giPoint3(sign * u, sign * v, -u); },
            [sign](double, double) { return giVector3(sign, 0, 1); });
    };
    dgGLMesh mesh = side(1);
    dgGLMesh other = side(-1);
    const auto first = static_cast<std::uint32_t>(mesh.positions.size() / 3);
    for (std::size_t i = 1; i < other.positions.size(); i += 3)
        other.positions[i] += 1;
    mesh.positions.insert(mesh.positions.end(), other.positions.begin(), other.positions.end());
    mesh.normals.insert(mesh.normals.end(), other.normals.begin(), other.normals.end());
    for (const std::uint32_t index : other.indices)
        mesh.indices.push_back(first + index);
    for (const int way : {1, -1}) // triangles that face as their normals do, and triangles that all face away
    {
        for (std::size_t i = 0; way < 0 && i < mesh.indices.size(); i += 3)
            std::swap(mesh.indices[i], mesh.indices[i + 1]);
        const std::vector<dgGLLevel> levels = levels_of(mesh);
        ASSERT_FALSE(levels.empty());
        int mixed = 0, folded = 0;
        for (const dgGLLevel& level : levels)
        {
            const std::vector<float> positions = positions_of(mesh, level);
            std::vector<float> normals = mesh.normals;
            normals.insert(normals.end(), level.normals.begin(), level.normals.end());
            for (std::size_t i = 0; level.triangles() > 200 && i < level.indices.size(); i += 3)
            {
                const auto [ax, ay, az] = place_of(positions, level.indices[i]);
                const auto [bx, by, bz] = place_of(positions, level.indices[i + 1]);
                const auto [cx, cy, cz] = place_of(positions, level.indices[i + 2]);
                const float area = (bx - ax) * (cy - ay) - (cx - ax) * (by - ay); // seen from above
                if (std::abs(area) < 1e-6)
                    continue;
                folded += way * area < 0;
                const auto on_side = [&](const std::vector<float>& of, int sign)
                {
                    const auto value = [&](std::size_t corner)
                    { return static_cast<float>(sign) * of[std::size_t(3) * level.indices[i + corner]]; };
                    return std::min({value(0), value(1), value(2)}) >= 0;
                };
                for (const int sign : {1, -1})
                    mixed += on_side(positions, sign) && !on_side(normals, sign);
            }
        }
        EXPECT_EQ(mixed, 0) << way;
        EXPECT_EQ(folded, 0) << way;
    }
}

TEST(dg_gl_fit, vertices_stand_for_what_lies_between_them)
{
    // A sheet that is an eighth of a cylinder, all normals of which are tilted to one side or to the other in turn: and
    // the same with one vertex in 16, whose normals are all tilted to one side.
    const double radius = 10, step = 0.785398163397448 / 8;
    const auto sheet = [&](int n)
    {
        int number = 0;
        dgGLShape shape;
        const dgGLMesh mesh = surface(
            8 * n, 8 * n, 1,
            [&](double u, double v)
            { return giPoint3(radius * std::sin(8 * step * u), 10 * v, radius * std::cos(8 * step * u)); },
            [&](double u, double)
            {
                const double tilt = n == 16 && number++ % 2 ? -0.3 : 0.3;
                return giVector3(std::sin(8 * step * u), tilt, std::cos(8 * step * u));
            });
        shape.positions = mesh.positions;
        shape.normals = mesh.normals;
        shape.indices = mesh.indices;
        for (int i = 0; i <= 8 * n; ++i)
            for (int j = 0; j <= 8 * n; ++j)
                shape.places.push_back(static_cast<std::uint32_t>(16 / n * (i * 129 + j)));
        return shape;
    };
    const dgGLShape fine = sheet(16), before = sheet(1);
    dgGLShape coarse = before;
    std::vector<char> fixed(129 * 129, 0);
    fixed[before.places[5 * 9 + 4]] = 1;
    dg_gl_fit(fine, coarse, fixed, false, {});
    const double lost = radius * (1 - std::cos(step / 2)); // by chords in their middle, and two thirds of it on average
    for (std::size_t vertex = 0; vertex < 81; ++vertex)
    {
        const std::size_t i = vertex / 9, j = vertex % 9;
        const bool open = i % 8 == 0 || j % 8 == 0, inner = i > 1 && i < 7 && j > 1 && j < 7;
        const float *p = &coarse.positions[3 * vertex], *n = &coarse.normals[3 * vertex];
        EXPECT_EQ(std::equal(p, p + 3, &before.positions[3 * vertex]), open || vertex == 49) << i << ' ' << j;
        EXPECT_EQ(std::equal(n, n + 3, &before.normals[3 * vertex]), open) << i << ' ' << j;
        if (!inner)
            continue;
        EXPECT_NEAR(n[1], 0, 0.06) << i << ' ' << j;
        EXPECT_NEAR(std::hypot(p[0], p[2]), radius + (vertex == 49 ? 0 : 0.9 * lost * 2 / 3), 0.2 * lost)
            << i << ' ' << j;
    }
}

TEST(dg_gl_fit, normals_of_a_curved_shape_are_quadratic)
{
    // Flat, with normals that are quadratic functions of the place: q(middle) - (q(a) + q(b)) / 2 is -1/4 of the
    // quadratic terms of b - a.
    const auto sheet = [](int n)
    {
        const dgGLMesh mesh = surface(
            n, n, 1, [](double u, double v) { return giPoint3(8 * u, 8 * v, 0); },
            [](double u, double v)
            { return giVector3(0.01 * 64 * u * u, 0.02 * 64 * u * v - 0.3 * v, 1 - 0.01 * 64 * v * v); });
        dgGLShape shape{mesh.positions, mesh.normals, {}, mesh.indices, {}};
        for (int i = 0; i <= n; ++i)
            for (int j = 0; j <= n; ++j)
                shape.places.push_back(static_cast<std::uint32_t>(32 / n * (i * 33 + j)));
        return shape;
    };
    dgGLShape coarse = sheet(4);
    for (std::size_t i = 0; i < coarse.normals.size(); i += 3)
        coarse.normals[i] += i % 4 ? 0 : 0.02f; // as a simplifier may choose them
    dg_gl_fit(sheet(32), coarse, std::vector<char>(33 * 33, 0), true, {});
    ASSERT_EQ(coarse.bends.size(), 3 * coarse.indices.size());
    for (std::size_t i = 0; i < coarse.indices.size(); ++i)
    {
        const float* from = &coarse.positions[std::size_t(3) * coarse.indices[i]];
        const float* to = &coarse.positions[std::size_t(3) * coarse.indices[i % 3 == 2 ? i - 2 : i + 1]];
        const double x = to[0] - from[0], y = to[1] - from[1], wanted[] = {0.01 * x * x, 0.02 * x * y, -0.01 * y * y};
        const auto inside = [](const float* p) { return p[0] > 0 && p[0] < 8 && p[1] > 0 && p[1] < 8; };
        for (std::size_t axis = 0; inside(from) && inside(to) && axis < 3; ++axis)
            EXPECT_NEAR(coarse.bends[3 * i + axis], -wanted[axis] / 4, 0.004) << i << ' ' << axis;
    }
}

TEST(dg_gl_simplify, stops_when_asked_and_takes_what_has_no_area)
{
    std::stop_source stop;
    stop.request_stop();
    EXPECT_TRUE(dg_gl_simplify(ring(100, 100, 1), stop.get_token()).empty());
    EXPECT_TRUE(levels_of({std::vector<float>(9), {}, std::vector<std::uint32_t>(30000)}).empty());
    EXPECT_TRUE(levels_of({}).empty());
    dgGLMesh mesh = ring(100, 100, 1);
    for (std::size_t i = 0; i < mesh.normals.size(); i += 300)
        mesh.normals[i] = std::nanf("");
    for (const dgGLLevel& level : levels_of(mesh))
        EXPECT_LT(*std::max_element(level.indices.begin(), level.indices.end()), positions_of(mesh, level).size() / 3);
}

TEST(dgGLLevels, a_share_shows_the_whole_block_with_few_triangles)
{
    for (int i = 0; i < 5; ++i)
        Bulge(); // 100,000 triangles, which are gone again and make no heavy scene
    Bulge scene;
    scene.store().complete_levels();
    const dgImage full = scene.picture();
    const std::size_t bytes = scene.store().bytes_used();
    EXPECT_GT(pixels_off(scene.share(0.1), full, 24), 5000) << "a sample";
    scene.make_levels();
    for (const double ratio : {0.6, 0.3, 0.1, 0.05, 0.02})
    {
        const dgImage image = scene.share(ratio);
        EXPECT_LT(pixels_off(image, full, 8), 50) << ratio;
        EXPECT_LE(scene.drawn, scene.triangles * ratio);
        EXPECT_GT(scene.drawn, scene.triangles * ratio * 0.4);
    }
    EXPECT_LT(scene.store().bytes_used() - bytes, 2 * 3 * 4 * std::size_t(scene.triangles))
        << "about a block's indices";
    scene.renderer.simplified_levels(0);
    EXPECT_GT(pixels_off(scene.share(0.1), full, 24), 5000) << "switched off";
    scene.renderer.simplified_levels(1);

    // An edit throws them away, and new ones are of the edited block.
    for (int i = 0; i < scene.block->block().nodes().count(); ++i)
        scene.block->block().nodes().set(i, scene.block->block().nodes()[i] + giVector3(0, 30, 0));
    scene.block->block_changed();
    scene.draw();
    const dgImage edited = scene.picture();
    EXPECT_GT(pixels_off(scene.share(0.1), edited, 24), 4000);
    scene.make_levels();
    EXPECT_LT(pixels_off(scene.share(0.1), edited, 24), 150);

    scene.root->delete_range(0, 0);
    EXPECT_LT(scene.store().bytes_used(), bytes);
}

TEST(dgGLLevels, idle_time_shows_the_full_picture_at_once_and_nothing_worse_before)
{
    Bulge scene;
    const dgImage full = scene.picture();
    scene.make_levels();
    const double rate = grViewRendererFast::minimum_framerate();
    grViewRendererFast::minimum_framerate(1e4);
    {
        grViewRefresherFast refresher({&scene.view});
        refresher.base_start_twiddle();
        for (int i = 0; i < 3; ++i)
            refresher.base_refresh();
        scene.renderer.select_buffer(dgFRONT_BUFFER);
        const dgImage simple = scene.picture();
        EXPECT_FALSE(same_pictures(simple, full));
        int before = 0;
        while (refresher.base_idle() != grIDLE_DONE)
            before += same_pictures(scene.picture(), simple);
        EXPECT_GT(before, 0);
        EXPECT_TRUE(same_pictures(scene.picture(), full));
        refresher.base_end_twiddle();
    }
    EXPECT_TRUE(same_pictures(scene.picture(), full));
    grViewRendererFast::minimum_framerate(rate);
}

TEST(dgGLLevels, facet_tolerance_chooses_the_level_by_the_pixels_that_it_is_off)
{
    Bulge bulge;
    const dgImage exact = bulge.picture();
    bulge.make_levels();
    const auto off = [&](double tolerance)
    {
        dgDrawQuality quality;
        quality.facet_tolerance_set = 1;
        quality.facet_tolerance = tolerance;
        bulge.renderer.set_in_pipeline_context(&quality);
        bulge.draw();
        return pixels_off(bulge.picture(), exact, 0);
    };
    EXPECT_EQ(off(0), 0);
    EXPECT_EQ(off(1e-6), 0) << "no level is that good";
    const int little = off(0.2), much = off(8);
    EXPECT_GT(little, 0);
    EXPECT_GT(much, little);
    // The same surface farther away looks as good by a coarser level: tolerances are pixels.
    bulge.view.camera().zoom(1000);
    EXPECT_EQ(off(0.2), off(8)) << "all of it is less than a pixel";
}
