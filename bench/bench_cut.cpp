// Cutting a triangle block by a plane beside a bare cut of the same mesh: the same result from plain arrays, the plane
// written into the loops, and one hash of the cut edges. Both start from a fresh copy of the mesh, which is not timed,
// and take turns. Times are processor time on one thread; memory is what a cut has allocated at most on top of the
// mesh. Keeping both sides makes the arrays longer: "both" has to move them, "both, room" finds room at their ends.
#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "giPlane.h"
#include "giTriBlock.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <new>
#include <numbers>
#include <vector>

namespace
{
std::size_t bytes_now = 0, bytes_peak = 0;

// In front of each piece of memory stands its size, in room that keeps the alignment.
constexpr std::size_t header = alignof(std::max_align_t);

void* counted(std::size_t bytes)
{
    auto* memory = static_cast<unsigned char*>(std::malloc(bytes + header));
    if (!memory)
        throw std::bad_alloc();
    std::memcpy(memory, &bytes, sizeof bytes);
    bytes_now += bytes;
    bytes_peak = std::max(bytes_peak, bytes_now);
    return memory + header;
}

void uncounted(void* pointer)
{
    if (!pointer)
        return;
    unsigned char* memory = static_cast<unsigned char*>(pointer) - header;
    std::size_t bytes;
    std::memcpy(&bytes, memory, sizeof bytes);
    bytes_now -= bytes;
    std::free(memory);
}
}

void* operator new(std::size_t bytes)
{
    return counted(bytes);
}
void operator delete(void* memory) noexcept
{
    uncounted(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    uncounted(memory);
}

namespace
{
constexpr double two_pi = 2 * std::numbers::pi;
const giPlane plane(giPoint3(3, 2, 1), giVector3(0.8, 0.5, 0.3));
constexpr double tolerance = 1e-6;

// A closed ring with waves on it and about that many triangles, with normals and texture coordinates.
giTriBlock ring(int triangles)
{
    const int across = static_cast<int>(std::sqrt(triangles / 2. / 3)), around = triangles / 2 / across;
    giTriBlock block;
    block.nodes().reserve(around * across);
    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    normals.reserve(static_cast<std::size_t>(around) * across);
    texture.reserve(static_cast<std::size_t>(around) * across);
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            const double u = two_pi * i / around, v = two_pi * j / across;
            const double thickness = 30 + 2 * std::sin(12 * u) * std::cos(3 * v);
            const giVector3 outwards(std::cos(v) * std::cos(u), std::cos(v) * std::sin(u), std::sin(v));
            block.nodes().append(giPoint3(70 * std::cos(u), 70 * std::sin(u), 0) + outwards * thickness);
            normals.push_back(outwards);
            texture.emplace_back(u, v);
        }
    block.create_normals() = std::move(normals);
    block.create_texture_coordinates() = std::move(texture);
    const auto node = [&](int i, int j) { return i % around * across + j % across; };
    block.triangles().reserve(static_cast<std::size_t>(around) * across * 2);
    for (int i = 0; i < around; ++i)
        for (int j = 0; j < across; ++j)
        {
            block.triangles().emplace_back(node(i, j), node(i + 1, j), node(i + 1, j + 1));
            block.triangles().emplace_back(node(i, j), node(i + 1, j + 1), node(i, j + 1));
        }
    return block;
}

std::size_t with_room(std::size_t count, bool room)
{
    return room ? count + count / 16 : count;
}

// A copy, with room at the ends of its arrays or without.
giTriBlock copy_of(const giTriBlock& original, bool room)
{
    giTriBlock block = original;
    const auto n = static_cast<std::size_t>(block.node_count());
    block.triangles().reserve(with_room(block.triangles().size(), room));
    block.nodes().reserve(static_cast<int>(with_room(n, room)));
    block.normals()->reserve(with_room(n, room));
    block.texture_coordinates()->reserve(with_room(n, room));
    return block;
}

struct BareMesh
{
    BareMesh(const giTriBlock& block, bool room)
    {
        const auto n = static_cast<std::size_t>(block.node_count());
        points.reserve(3 * with_room(n, room));
        normals.reserve(3 * with_room(n, room));
        texture.reserve(2 * with_room(n, room));
        for (std::size_t i = 0; i < n; ++i)
            for (int k = 0; k < 3; ++k)
            {
                points.push_back(block.nodes().data()[i][k]);
                normals.push_back((*block.normals())[i][k]);
                if (k < 2)
                    texture.push_back((*block.texture_coordinates())[i][k]);
            }
        triangles.reserve(3 * with_room(block.triangles().size(), room));
        for (const giTriangle& t : block.triangles())
            for (int k = 0; k < 3; ++k)
                triangles.push_back(t[k]);
    }

    std::vector<double> points, normals, texture;
    std::vector<int> triangles;
};

// The bare cut. Triangles that touch the plane are not thought of: no node of the ring lies on it.
class BareCut
{
public:
    explicit BareCut(BareMesh& mesh) : the_mesh(mesh), the_hash(1024, -1) {}

    void run(bool keep_negative)
    {
        const std::size_t n = the_mesh.points.size() / 3;
        const giVector3 normal = plane.normal();
        const double offset = plane.point().vector().dot(normal);
        the_sides.resize(n);
        for (std::size_t i = 0; i < n; ++i)
        {
            const double* p = &the_mesh.points[3 * i];
            the_sides[i] = p[0] * normal.x() + p[1] * normal.y() + p[2] * normal.z() > offset;
        }
        std::vector<int>& triangles = the_mesh.triangles;
        std::vector<std::uint8_t> used(n);
        std::size_t kept = 0;
        for (std::size_t i = 0; i < triangles.size(); i += 3)
        {
            const int a = triangles[i], b = triangles[i + 1], c = triangles[i + 2];
            const int positive = the_sides[at(a)] + the_sides[at(b)] + the_sides[at(c)];
            if (positive == 3 || (positive == 0 && keep_negative))
            {
                used[at(a)] = used[at(b)] = used[at(c)] = 1;
                triangles[kept++] = a;
                triangles[kept++] = b;
                triangles[kept++] = c;
            }
            else if (positive)
                split(a, b, c, positive == 2, keep_negative);
        }
        triangles.resize(kept);
        for (const int node : the_pieces)
            if (at(node) < n)
                used[at(node)] = 1;
        triangles.reserve(kept + the_pieces.size());
        triangles.insert(triangles.end(), the_pieces.begin(), the_pieces.end());
        std::vector<int> numbers(n + the_cuts.size());
        int count = 0;
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = i >= n || used[i] ? count++ : -1;
        for (int& node : triangles)
            node = numbers[at(node)];
        compact(the_mesh.points, 3, numbers, n);
        compact(the_mesh.normals, 3, numbers, n);
        compact(the_mesh.texture, 2, numbers, n);
    }

private:
    struct CutEdge
    {
        int a, b;
        double t;
    };
    static std::size_t at(int i) { return static_cast<std::size_t>(i); }

    double height(int node) const
    {
        const double* p = &the_mesh.points[3 * at(node)];
        return plane.distance(giPoint3(p[0], p[1], p[2]));
    }

    std::size_t slot(int a, int b) const
    {
        const auto [low, high] = std::minmax(a, b);
        const auto key = static_cast<std::uint64_t>(low) << 32 | static_cast<std::uint64_t>(high);
        std::size_t place = (key * 0x9E3779B97F4A7C15u >> 32) & (the_hash.size() - 1);
        while (the_hash[place] >= 0 &&
               !(std::min(the_cuts[at(the_hash[place])].a, the_cuts[at(the_hash[place])].b) == low &&
                 std::max(the_cuts[at(the_hash[place])].a, the_cuts[at(the_hash[place])].b) == high))
            place = (place + 1) & (the_hash.size() - 1);
        return place;
    }

    int node_on(int a, int b)
    {
        if (2 * the_cuts.size() >= the_hash.size())
        {
            the_hash.assign(2 * the_hash.size(), -1);
            for (std::size_t i = 0; i < the_cuts.size(); ++i)
                the_hash[slot(the_cuts[i].a, the_cuts[i].b)] = static_cast<int>(i);
        }
        int& entry = the_hash[slot(a, b)];
        if (entry < 0)
        {
            entry = static_cast<int>(the_cuts.size());
            const double from = height(a), to = height(b);
            the_cuts.push_back({a, b, from / (from - to)});
        }
        return entry + static_cast<int>(the_sides.size());
    }

    void split(int a, int b, int c, bool lone_negative, bool keep_negative)
    {
        while (the_sides[at(a)] == lone_negative)
        {
            const int first = a;
            a = b, b = c, c = first;
        }
        const int x = node_on(a, b), y = node_on(c, a);
        if (lone_negative || keep_negative)
            the_pieces.insert(the_pieces.end(), {x, b, y, y, b, c});
        if (!lone_negative || keep_negative)
            the_pieces.insert(the_pieces.end(), {a, x, y});
    }

    void compact(std::vector<double>& values, std::size_t width, const std::vector<int>& numbers, std::size_t n) const
    {
        std::vector<double> added;
        added.reserve(width * the_cuts.size());
        for (const CutEdge& cut : the_cuts)
            for (std::size_t k = 0; k < width; ++k)
            {
                const double from = values[width * at(cut.a) + k], to = values[width * at(cut.b) + k];
                added.push_back(from + (to - from) * cut.t);
            }
        double* end = values.data();
        for (std::size_t i = 0; i < n; ++i)
            if (numbers[i] >= 0)
                for (std::size_t k = 0; k < width; ++k)
                    *end++ = values[width * i + k];
        values.resize(static_cast<std::size_t>(end - values.data()));
        values.reserve(values.size() + added.size());
        values.insert(values.end(), added.begin(), added.end());
    }

    BareMesh& the_mesh;
    std::vector<std::uint8_t> the_sides;
    std::vector<int> the_hash;
    std::vector<CutEdge> the_cuts;
    std::vector<int> the_pieces;
};

double seconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

struct Figures
{
    double best_seconds = 1e30;
    double extra_bytes = 0;
    int triangles = 0;
};

template <class Work>
void measure(Figures& figures, Work work)
{
    const std::size_t before = bytes_now;
    bytes_peak = bytes_now;
    const double start = seconds();
    figures.triangles = work();
    figures.best_seconds = std::min(figures.best_seconds, seconds() - start);
    figures.extra_bytes = static_cast<double>(bytes_peak - before);
}
}

int main()
{
    std::printf("%-9s %-10s %12s %12s %7s %14s %14s\n", "triangles", "keeps", "cut ns/tri", "bare ns/tri", "ratio",
                "cut memory", "bare memory");
    for (const int size : {100000, 1000000, 4000000})
    {
        const giTriBlock original = ring(size);
        const double n = original.triangle_count();
        const double mesh_bytes = n * sizeof(giTriangle) + original.node_count() * 64.;
        const int rounds = std::max(5, 12000000 / size);
        const struct
        {
            const char* name;
            bool both, room;
        } cases[] = {{"one", false, false}, {"both", true, false}, {"both, room", true, true}};
        for (const auto& [name, both, room] : cases)
        {
            const int keep_negative = both;
            Figures cut, bare;
            for (int round = 0; round < rounds; ++round)
            {
                {
                    giTriBlock block = copy_of(original, room);
                    measure(cut,
                            [&]
                            {
                                grTriCut::cut(block, grTriCutterPlane(plane, tolerance), keep_negative);
                                return block.triangle_count();
                            });
                }
                BareMesh mesh(original, room);
                measure(bare,
                        [&]
                        {
                            BareCut(mesh).run(keep_negative);
                            return static_cast<int>(mesh.triangles.size() / 3);
                        });
            }
            if (cut.triangles != bare.triangles)
                return std::printf("the two cuts differ: %d and %d triangles\n", cut.triangles, bare.triangles), 1;
            std::printf("%-9.0f %-10s %12.2f %12.2f %7.2f %8.2f x mesh %8.2f x mesh\n", n, name,
                        cut.best_seconds / n * 1e9, bare.best_seconds / n * 1e9, cut.best_seconds / bare.best_seconds,
                        cut.extra_bytes / mesh_bytes, bare.extra_bytes / mesh_bytes);
        }
    }
    return 0;
}
