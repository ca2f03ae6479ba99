// Cutting a triangle block by a plane beside a bare cut of the same mesh: the same result from plain arrays, the plane
// written into the loops, and one hash of the cut edges. Both start from a fresh copy of the mesh, which is not timed,
// and take turns. Times are processor time on one thread; memory is what a cut has allocated at most on top of the
// mesh. Keeping both sides makes the arrays longer: "both" has to move them, "both, room" finds room at their ends.
#include "benchBareCut.h"
#include "benchCutMesh.h"
#include "benchTiming.h"

#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

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
constexpr double tolerance = 1e-6;

// A copy, with room at the ends of its arrays or without.
giTriBlock copy_of(const giTriBlock& original, bool room)
{
    giTriBlock block = original;
    const auto n = static_cast<std::size_t>(block.node_count());
    block.triangles().reserve(bench_with_room(block.triangles().size(), room));
    block.nodes().reserve(static_cast<int>(bench_with_room(n, room)));
    block.normals()->reserve(bench_with_room(n, room));
    block.texture_coordinates()->reserve(bench_with_room(n, room));
    return block;
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
    const double time = processor_seconds([&] { figures.triangles = work(); });
    figures.best_seconds = std::min(figures.best_seconds, time);
    figures.extra_bytes = static_cast<double>(bytes_peak - before);
}
}

int main()
{
    std::printf("%-9s %-10s %12s %12s %7s %14s %14s\n", "triangles", "keeps", "cut ns/tri", "bare ns/tri", "ratio",
                "cut memory", "bare memory");
    for (const int size : {100000, 1000000, 4000000})
    {
        const giTriBlock original = bench_ring(size);
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
                                grTriCut::cut(block, grTriCutterPlane(bench_cut_plane, tolerance), keep_negative);
                                return block.triangle_count();
                            });
                }
                benchBareMesh mesh(original, room);
                measure(bare,
                        [&]
                        {
                            benchBareCut(mesh, bench_cut_plane).run(keep_negative);
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
