#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "meshes.h"

#include "giPlane.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <sstream>

using meshes::at;

namespace
{
constexpr double tolerance = 1e-6;
constexpr double no_number = std::numeric_limits<double>::quiet_NaN();

// Zones by the x of a node, one letter each: on, positive, negative, undetermined. Edges meet at a share that the test
// chooses.
class LetterCutter : public grTriCutter
{
public:
    explicit LetterCutter(const std::string& zones) : grTriCutter(0), the_zones(zones) {}
    grZone zone_node(const giPoint3& p) const override
    {
        return static_cast<grZone>(std::string("uopn").find(the_zones[at(static_cast<int>(p.x()))]));
    }
    void intersect_edge(const giPoint3& p, const giPoint3& q, double, const giAngle&, int& status, double& t,
                        giPoint3& point) const override
    {
        status = meets;
        t = share;
        point = giPoint3::interpolate(p, q, t);
    }
    int meets = 1;
    double share = 0.5;

private:
    std::string the_zones;
};

// Nodes at x = 0, 1, 2...
giTriBlock triangle_of(const std::string& zones, const giTriangle& t = giTriangle(0, 1, 2))
{
    giTriBlock block;
    for (std::size_t i = 0; i < zones.size(); ++i)
        block.nodes().append(giPoint3(static_cast<double>(i), i % 2, 0));
    block.triangles().push_back(t);
    return block;
}

std::string text_of(const std::vector<giTriangle>& triangles)
{
    std::ostringstream text;
    for (const giTriangle& t : triangles)
        text << (&t == triangles.data() ? "" : ", ") << t[0] << ' ' << t[1] << ' ' << t[2];
    return text.str();
}

// A node with all that it carries.
struct Corner
{
    giPoint3 point;
    giVector3 normal;
    giPoint2 texture;
    double height; // above the plane, 0 within the tolerance
};
using Piece = std::array<Corner, 3>;

std::vector<Piece> pieces_of(const giTriBlock& block, const giPlane& plane)
{
    std::vector<Piece> pieces;
    for (const giTriangle& t : block.triangles())
    {
        Piece piece;
        for (int k = 0; k < 3; ++k)
        {
            const double height = plane.distance(block.nodes()[t[k]]);
            piece[at(k)] = {block.nodes()[t[k]], (*block.normals())[at(t[k])], (*block.texture_coordinates())[at(t[k])],
                            std::abs(height) < tolerance ? 0 : height};
        }
        pieces.push_back(piece);
    }
    return pieces;
}

Corner between(const Corner& a, const Corner& b)
{
    const double t = a.height / (a.height - b.height);
    return {giPoint3::interpolate(a.point, b.point, t), a.normal * (1 - t) + b.normal * t,
            giPoint2::interpolate(a.texture, b.texture, t), 0};
}

// The cut once more, on single triangles and by the signs of their corners.
std::vector<Piece> cut_by_signs(const std::vector<Piece>& triangles, bool keep_negative)
{
    std::vector<Piece> whole, parts;
    for (Piece t : triangles)
    {
        std::vector<Piece> sides[2]; // positive, negative
        const auto side_of = [](const Corner& corner) { return corner.height < 0 ? 1 : 0; };
        const auto crosses = [&](int i, int j) { return t[at(i)].height * t[at(j)].height < 0; };
        if (!crosses(0, 1) && !crosses(1, 2) && !crosses(2, 0))
        {
            const double sum = t[0].height + t[1].height + t[2].height;
            if (sum > 0 || (sum < 0 && keep_negative))
                whole.push_back(t);
            continue;
        }
        // Turned until the first corner lies in the plane, or alone on its side.
        while (t[0].height != 0 && !(crosses(0, 1) && crosses(2, 0)))
            std::rotate(t.begin(), t.begin() + 1, t.end());
        if (t[0].height == 0)
        {
            const Corner m = between(t[1], t[2]);
            sides[side_of(t[1])].push_back({t[0], t[1], m});
            sides[side_of(t[2])].push_back({t[0], m, t[2]});
        }
        else
        {
            const Corner x = between(t[0], t[1]), y = between(t[2], t[0]);
            sides[side_of(t[0])].push_back({t[0], x, y});
            sides[side_of(t[1])].push_back({x, t[1], y});
            sides[side_of(t[1])].push_back({y, t[1], t[2]});
        }
        parts.insert(parts.end(), sides[0].begin(), sides[0].end());
        if (keep_negative)
            parts.insert(parts.end(), sides[1].begin(), sides[1].end());
    }
    whole.insert(whole.end(), parts.begin(), parts.end());
    return whole;
}

void expect_same(const std::vector<Piece>& found, const std::vector<Piece>& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        for (std::size_t k = 0; k < 3; ++k)
        {
            ASSERT_TRUE(found[i][k].point.coincident(expected[i][k].point, 1e-9)) << "triangle " << i;
            ASSERT_LE((found[i][k].normal - expected[i][k].normal).length(), 1e-9) << "triangle " << i;
            ASSERT_TRUE(found[i][k].texture.coincident(expected[i][k].texture, 1e-9)) << "triangle " << i;
        }
}

// Triangles between random nodes, some of which lie in the plane z = 0: they cross each other and share edges.
giTriBlock soup(unsigned seed)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> coordinate(-10, 10);
    std::vector<giPoint3> nodes;
    std::vector<giTriangle> triangles;
    std::vector<int> numbers;
    for (int i = 0; i < 60; ++i)
    {
        nodes.emplace_back(coordinate(random), coordinate(random), i % 5 ? coordinate(random) : 0);
        numbers.push_back(i);
    }
    for (int i = 0; i < 200; ++i)
    {
        std::shuffle(numbers.begin(), numbers.end(), random);
        triangles.emplace_back(numbers[0], numbers[1], numbers[2]);
    }
    return meshes::block(nodes, triangles);
}

// How often each edge is used, against its direction counted back: none is left of a closed mesh.
std::size_t open_edges(const giTriBlock& block)
{
    std::map<std::pair<int, int>, int> edges;
    for (const giTriangle& t : block.triangles())
        for (int k = 0; k < 3; ++k)
        {
            const auto [low, high] = std::minmax({t.edge_start(k), t.edge_end(k)});
            edges[{low, high}] += low == t.edge_start(k) ? 1 : -1;
        }
    return std::erase_if(edges, [](const auto& edge) { return edge.second != 0; });
}
}

TEST(grTriCut, agrees_with_a_cut_by_signs)
{
    const giPlane flat(giPoint3(0, 0, 0), giVector3(0, 0, 1));
    for (unsigned seed = 0; seed < 20; ++seed)
        for (const int keep_negative : {0, 1})
        {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", keeps " << keep_negative);
            const giPlane slanted(giPoint3(0.1 * seed, 0, 0.2), giVector3(1, 0.3 * seed, seed - 9.5));
            for (const auto& [mesh, plane] : {std::pair(soup(seed), flat), {meshes::torus(24, 12, seed), slanted}})
            {
                giTriBlock block = mesh;
                grTriCut::cut(block, grTriCutterPlane(plane, tolerance), keep_negative);
                expect_same(pieces_of(block, plane), cut_by_signs(pieces_of(mesh, plane), keep_negative));
                EXPECT_EQ(block.normals()->size(), at(block.node_count()));
            }
        }
}

TEST(grTriCut, neighbours_share_their_new_nodes_and_a_second_cut_changes_nothing)
{
    for (unsigned seed = 0; seed < 20; ++seed)
    {
        const grTriCutterPlane cutter(giPlane(giPoint3(0.1 * seed, 0, 0.2), giVector3(1, 0.3 * seed, seed - 9.5)),
                                      tolerance);
        giTriBlock block = meshes::torus(24, 12, seed);
        grTriCut::cut(block, cutter, 1);
        EXPECT_EQ(open_edges(block), 0u);
        const giTriBlock once = block;
        grTriCut::cut(block, cutter, 1);
        EXPECT_EQ(block, once);
        grTriCut::cut(block, cutter, 0);
        EXPECT_GT(open_edges(block), 0u);
    }
}

TEST(grTriCut, zones_decide_over_single_triangles)
{
    const struct
    {
        const char* zones;
        giTriangle triangle;
        const char *positive, *both; // the triangles left, by the side or sides kept
        grZone by_edges, by_nodes;
    } cases[] = {
        {"ppp", {0, 1, 2}, "0 1 2", "0 1 2", grPOSITIVE_ZONE, grPOSITIVE_ZONE},
        {"nnn", {0, 1, 2}, "", "0 1 2", grNEGATIVE_ZONE, grNEGATIVE_ZONE},
        {"opp", {0, 1, 2}, "0 1 2", "0 1 2", grPOSITIVE_ZONE, grPOSITIVE_ZONE},
        {"oon", {0, 1, 2}, "", "0 1 2", grNEGATIVE_ZONE, grNEGATIVE_ZONE},
        {"ooo", {0, 1, 2}, "", "", grON_ZONE, grUNDETERMINED_ZONE},              // goes from both sides
        {"ppxp", {0, 1, 3}, "0 1 2", "0 1 2", grPOSITIVE_ZONE, grPOSITIVE_ZONE}, // without the node that nobody uses
        {"opn", {0, 1, 2}, "0 1 2", "0 1 3, 0 3 2", grSPANNING_ZONE, grPOSITIVE_ZONE},
        // The new node on edge 1 comes before that on edge 2.
        {"npp", {0, 1, 2}, "3 0 2, 2 0 1", "4 1 3, 3 1 2, 0 4 3", grSPANNING_ZONE, grNEGATIVE_ZONE},
        {"pnn", {0, 1, 2}, "0 2 1", "0 4 3, 4 1 3, 3 1 2", grSPANNING_ZONE, grPOSITIVE_ZONE},
        {"pnu", {0, 1, 2}, "", "", grSPANNING_ZONE, grPOSITIVE_ZONE}, // three edges cut: no pieces
        {"uuu", {0, 1, 2}, "", "", grSPANNING_ZONE, grUNDETERMINED_ZONE},
        {"pn", {0, 1, 0}, "0 1 0", "0 2 0, 0 1 2", grSPANNING_ZONE, grPOSITIVE_ZONE}, // one edge, there twice
        {"pn", {1, 0, 0}, "0 0 1", "0 0 2, 0 2 1", grSPANNING_ZONE, grNEGATIVE_ZONE},
        {"pn", {0, 0, 1}, "0 0 1", "0 0 2, 0 2 1", grSPANNING_ZONE, grPOSITIVE_ZONE},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.zones);
        const LetterCutter cutter(c.zones);
        const giTriBlock original = triangle_of(c.zones, c.triangle);
        for (const int keep_negative : {0, 1})
        {
            giTriBlock block = original;
            grTriCut::cut(block, cutter, keep_negative);
            EXPECT_EQ(text_of(block.triangles()), keep_negative ? c.both : c.positive);
            EXPECT_EQ(block.node_count() == 0, block.triangles().empty());
        }
        intgrZonecoTable node_zones;
        gsTriEdgegrZonecoTable edge_zones;
        grTriCut::zone_nodes(original.triangles(), original.nodes(), cutter, node_zones);
        grTriCut::zone_edges(original.triangles(), node_zones, edge_zones);
        EXPECT_EQ(grTriCut::zone_tri(c.triangle, edge_zones), c.by_edges);
        EXPECT_EQ(grTriCut::zone_tri(c.triangle, node_zones), c.by_nodes);
        EXPECT_EQ(node_zones.contains(2), c.triangle[1] == 1 && c.triangle[2] == 2);
    }
}

TEST(grTriCut, being_on_the_plane_is_strict)
{
    const struct
    {
        const char* name;
        double x, tolerance;
        grZone zone;
    } cases[] = {{"inside the tolerance", 0.4999, 0.5, grON_ZONE},
                 {"at the tolerance", 0.5, 0.5, grPOSITIVE_ZONE},
                 {"at the tolerance below", -0.5, 0.5, grNEGATIVE_ZONE},
                 {"in the plane without a tolerance", 0, 0, grNEGATIVE_ZONE},
                 {"no number", no_number, 0.5, grNEGATIVE_ZONE}};
    const giPlane plane(giPoint3(0, 0, 0), giVector3(1, 0, 0));
    for (const auto& c : cases)
        EXPECT_EQ(grTriCutterPlane(plane, c.tolerance).zone_node(giPoint3(c.x, 7, 8)), c.zone) << c.name;
}

TEST(grTriCut, edge_that_is_not_met_is_given_a_copy_of_its_first_node)
{
    const struct
    {
        const char* name;
        int meets;
        double share, expected;
    } cases[] = {{"start", 1, 0, 0},      {"end", 1, 1, 1},       {"before the start", 1, -0.001, 0},
                 {"behind", 1, 1.001, 0}, {"nowhere", 0, 0.5, 0}, {"no number", 1, no_number, 0}};
    for (const auto& c : cases)
    {
        LetterCutter cutter("npp");
        cutter.meets = c.meets;
        cutter.share = c.share;
        giTriBlock block = triangle_of("npp");
        gsTriEdgegrInterNodecoTable cut_edges;
        grTriCut::cut(block, cutter, 1, &cut_edges);
        EXPECT_EQ(block.triangle_count(), 3) << c.name;
        const grInterNode& node = *cut_edges.find(gsTriEdge(0, 1));
        EXPECT_EQ(node.t(), c.expected) << c.name;
        EXPECT_EQ(block.nodes()[node.index()], block.nodes()[c.expected == 1 ? 1 : 0]) << c.name;
    }
    // 1e6 long and 0.02 across the plane, which is an angle of about 1.1e-6 degrees.
    giTriBlock block = meshes::block({{-0.01, 0, 0}, {0.01, 1e6, 0}, {1, 0, 1}}, {{0, 1, 2}});
    grTriCut::cut(block, grTriCutterPlane(giPlane(giPoint3(0, 0, 0), giVector3(1, 0, 0)), tolerance), 1);
    EXPECT_EQ(block.nodes()[4], giPoint3(-0.01, 0, 0));
}

TEST(grTriCut, values_of_equal_ends_are_exact_and_curvatures_beside_missing_ones_miss)
{
    giTriBlock block = meshes::block({{-1, 0, 0}, {1, 0, 0}, {1, 2, 0}}, {{0, 1, 2}});
    const giVector3 odd(0.1, 0.2, 0.3);
    constexpr double missing = std::numeric_limits<double>::max();
    block.create_normals() = {odd, odd, giVector3(0, 0, 1)};
    block.create_texture_coordinates() = {giPoint2(1. / 3, 1. / 7), giPoint2(1. / 3, 1. / 7 + 1e-6), giPoint2(1, 1)};
    block.create_curvatures() = {{2, 4}, {4, 8}, {missing, 0}};
    grTriCut::cut(block, grTriCutterPlane(giPlane(giPoint3(0.5, 0, 0), giVector3(1, 0, 0)), tolerance), 1);
    // Node 3 lies between nodes 2 and 0, node 4 at 3/4 of the way from node 0 to node 1.
    EXPECT_EQ((*block.normals())[4], odd);
    EXPECT_EQ((*block.texture_coordinates())[4], giPoint2(1. / 3, 1. / 7)); // that of node 0: nearer than 1e-5
    EXPECT_DOUBLE_EQ((*block.curvatures())[4][0], 3.5);
    EXPECT_DOUBLE_EQ((*block.curvatures())[4][1], 7);
    EXPECT_EQ((*block.curvatures())[3], (giTriBlock::curvature_pair{missing, 0}));
}

TEST(grTriCut, coordinates_that_are_no_finite_numbers_do_no_harm)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double value : {no_number, infinity, -infinity, std::numeric_limits<double>::max()})
        for (const int keep_negative : {0, 1})
        {
            giTriBlock block = meshes::torus(12, 8, 5);
            for (int node = 0; node < block.node_count(); node += 7)
                block.nodes().set(node, giPoint3(node % 2 ? value : 0, value, node % 3 ? 1 : value));
            grTriCut::cut(block, grTriCutterPlane(giPlane(giPoint3(0.3, 0, 0), giVector3(1, 0, 0)), tolerance),
                          keep_negative);
            EXPECT_GT(block.triangle_count(), 0);
            EXPECT_EQ(block.normals()->size(), at(block.node_count()));
            for (const giTriangle& t : block.triangles())
                for (int k = 0; k < 3; ++k)
                    ASSERT_TRUE(t[k] >= 0 && t[k] < block.node_count());
        }
}
