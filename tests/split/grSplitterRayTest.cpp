#include "grDiagSplitter.h"
#include "grSplitBlock.h"
#include "grSplitter.h"
#include "gr_make_tblock.h"

#include "splitScene.h"

#include "giXform3.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iomanip>
#include <iostream>
#include <map>
#include <random>

namespace
{
/// What vertical rays through a block's box meet first from either side, in double precision.
struct RayCounts
{
    int upper = 0, lower = 0, alone = 0;
    bool hides_itself = false;
};

/// Where the vertical line through (x, y) meets a triangle; facing is 1 up, -1 down. NaN where it does not.
double height_at(const giTriBlock& block, const giTriangle& t, double x, double y, int& facing)
{
    const giPoint3 &a = block.nodes()[t[0]], &b = block.nodes()[t[1]], &c = block.nodes()[t[2]];
    const auto doubled_area = [](double ax, double ay, double bx, double by) { return ax * by - ay * bx; };
    const double whole = doubled_area(b.x() - a.x(), b.y() - a.y(), c.x() - a.x(), c.y() - a.y());
    const double u = doubled_area(b.x() - x, b.y() - y, c.x() - x, c.y() - y) / whole;
    const double v = doubled_area(c.x() - x, c.y() - y, a.x() - x, a.y() - y) / whole;
    const double w = 1 - u - v;
    facing = whole > 0 ? 1 : -1;
    return u >= 0 && v >= 0 && w >= 0 ? u * a.z() + v * b.z() + w * c.z() : std::nan("");
}

RayCounts cast_rays(const std::vector<std::unique_ptr<giTriBlock>>& blocks, std::size_t block, int rays_per_side)
{
    RayCounts counts;
    const giBox3 box = blocks[block]->box();
    for (int i = 0; i < rays_per_side; ++i)
        for (int j = 0; j < rays_per_side; ++j)
        {
            const double x = box.low().x() + box.width() * (i + 0.5) / rays_per_side;
            const double y = box.low().y() + box.height() * (j + 0.5) / rays_per_side;
            double top = -1e30, bottom = 1e30;
            std::size_t highest = blocks.size(), lowest = blocks.size();
            int met = 0, ways[2] = {0, 0};
            for (std::size_t other = 0; other < blocks.size(); ++other)
            {
                const giBox3& around = blocks[other]->box();
                if (x < around.low().x() || x > around.high().x() || y < around.low().y() || y > around.high().y())
                    continue;
                for (const giTriangle& t : blocks[other]->triangles())
                {
                    int facing;
                    const double z = height_at(*blocks[other], t, x, y, facing);
                    if (std::isnan(z))
                        continue;
                    if (other == block)
                    {
                        met = 1;
                        ways[facing > 0] = 1;
                    }
                    if (z > top)
                        top = z, highest = other;
                    if (z < bottom)
                        bottom = z, lowest = other;
                }
            }
            counts.alone += met;
            counts.upper += highest == block;
            counts.lower += lowest == block;
            counts.hides_itself |= ways[0] && ways[1];
        }
    return counts;
}

/// A sheet over a rectangle, up to 2 high: a dome, a wave or a slope.
std::unique_ptr<giTriBlock> sheet(double x, double y, double z, double width, double height, unsigned kind, int facing)
{
    constexpr int n = 8;
    std::vector<giPoint3> nodes;
    std::vector<giTriangle> triangles;
    for (int i = 0; i <= n; ++i)
        for (int j = 0; j <= n; ++j)
        {
            const double u = 2. * i / n - 1, v = 2. * j / n - 1;
            const double rise = kind == 0 ? 2 - u * u - v * v : kind == 1 ? std::sin(4 * u) * std::cos(3 * v) : u + v;
            nodes.emplace_back(x + width * (u + 1) / 2, y + height * (v + 1) / 2, z + rise);
        }
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j)
        {
            const int a = i * (n + 1) + j, b = a + n + 1, c = b + 1, d = a + 1;
            triangles.emplace_back(a, facing > 0 ? b : c, facing > 0 ? c : b);
            triangles.emplace_back(a, facing > 0 ? c : d, facing > 0 ? d : c);
        }
    return std::unique_ptr<giTriBlock>(gr_make_tblock(nodes, triangles));
}

/// Sheets and boxes of sizes from 1 to 40 over a square of 100, many of them over each other.
void add_part(SplitScene& scene, int n_blocks, unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> place(0, 100), level(-30, 30);
    std::exponential_distribution<double> size(0.08);
    scene.add(sheet(0, 0, 0, 100, 100, 1, 1));
    for (int i = 1; i < n_blocks; ++i)
    {
        const double width = std::min(1 + size(random), 40.), height = std::min(1 + size(random), 40.);
        const double x = place(random), y = place(random), z = level(random);
        if (i % 4 == 0)
            scene.add_box(giPoint3(x, y, z), giPoint3(x + width, y + height, z + 3));
        else
            scene.add(sheet(x, y, z, width, height, random() % 3, random() % 2 ? 1 : -1));
    }
}

grBlockVisClass class_of(const RayCounts& counts)
{
    const double upper = static_cast<double>(counts.upper) / counts.alone;
    const double lower = static_cast<double>(counts.lower) / counts.alone;
    if (counts.hides_itself)
        return grVIS_BOTH;
    return upper > 0.9 && lower < 0.1 ? grVIS_UPPER : lower > 0.9 && upper < 0.1 ? grVIS_LOWER : grVIS_BOTH;
}

/// How far the shares are from the limits that they are compared with.
double margin_of(const RayCounts& counts)
{
    double margin = 1;
    for (const int count : {counts.upper, counts.lower})
        for (const double limit : {0.1, 0.9})
            margin = std::min(margin, std::abs(static_cast<double>(count) / counts.alone - limit));
    return margin;
}
}

TEST(grSplitterRays, classes_agree_with_ray_casting)
{
    constexpr int n_blocks = 60, n_parts = 4, rays_per_side = 60;
    int confusion[4][4] = {}, borderline = 0, small = 0;
    for (unsigned seed = 1; seed <= n_parts; ++seed)
    {
        SCOPED_TRACE("seed " + std::to_string(seed));
        SplitScene scene;
        add_part(scene, n_blocks, seed);
        std::vector<RayCounts> rays;
        for (std::size_t i = 0; i < scene.owned.size(); ++i)
            rays.push_back(cast_rays(scene.owned, i, rays_per_side));

        // The part is turned, so that the split has to turn it back.
        const giXform3 turn = giXform3::rotation(giAngle(0.7 * seed), giVector3(1, seed, 2));
        for (const auto& block : scene.owned)
            gr_transform_tblock(*block, turn);
        struct : grDiagSplitter
        {
            void classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag) override
            {
                classes[block.block_index()] = vis;
                diags[block.block_index()] = diag;
            }
            std::map<int, grBlockVisClass> classes;
            std::map<int, grBlockDiagClass> diags;
        } outcome;
        grBlockIdx upper, lower, undecided, both;
        ASSERT_TRUE(grSplitter().split(&scene.window, scene.blocks, giVector3(0, 0, 1) * turn, 512, upper, lower,
                                       undecided, both, grSplitterCallback(), &outcome));
        for (int block = 0; block < n_blocks; ++block)
        {
            const RayCounts& counts = rays[static_cast<std::size_t>(block)];
            const grBlockVisClass expected = class_of(counts), found = outcome.classes[block];
            ++confusion[expected][found];
            small += outcome.diags[block] >= grDIAG_POINT_ZOOM_UPPER && outcome.diags[block] <= grDIAG_NOT_VERTICAL;
            const bool near_limit = margin_of(counts) < 0.03;
            borderline += near_limit;
            EXPECT_TRUE(near_limit || found == expected)
                << "block " << block << ": " << counts.upper << ' ' << counts.lower << " of " << counts.alone << ", "
                << outcome.diags[block];
        }
    }
    std::cout << "rays \\ split  upper  lower  undecided  both   (" << borderline << " of " << n_parts * n_blocks
              << " blocks within 0.03 of a limit, " << small << " decided by zooms)\n";
    const char* const names[] = {"upper", "lower", "undecided", "both"};
    int agree = 0;
    for (int i = 0; i < 4; ++i)
    {
        std::cout << std::left << std::setw(12) << names[i] << std::right << std::setw(7) << confusion[i][0]
                  << std::setw(7) << confusion[i][1] << std::setw(11) << confusion[i][2] << std::setw(6)
                  << confusion[i][3] << '\n';
        agree += confusion[i][i];
    }
    EXPECT_GE(agree, n_parts * n_blocks * 95 / 100);
    EXPECT_GT(confusion[grVIS_UPPER][grVIS_UPPER], 10); // the parts have blocks of every kind
    EXPECT_GT(confusion[grVIS_LOWER][grVIS_LOWER], 10);
    EXPECT_GT(confusion[grVIS_BOTH][grVIS_BOTH], 10);
    EXPECT_GT(small, 10);
}
