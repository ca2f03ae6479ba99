#include "dgGLLevels.h"

#include "apEnvironment.h"
#include "dgGLArena.h"
#include "dgGLIndexRanges.h"
#include "dgGLVertex.h"
#include "dgGeometry.h"
#include "giPoint3.h"
#include "giTriangle.h"
#include "giVector3.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>

namespace
{
// Changes of a normal in the middle of a side that are not seen.
constexpr float least_bend = 1.0f / 128;

int switched_on()
{
    std::string value;
    return !apEnvironment::lookup("GR_LEVELS", value) || value != "0";
}

dgGLMesh mesh_of(const dgGeometry& geometry, const giPoint3& origin)
{
    dgGLMesh mesh;
    const auto npoints = static_cast<std::size_t>(geometry.npoints);
    const auto ntriangles = static_cast<std::size_t>(geometry.nfeatures);
    mesh.positions.reserve(3 * npoints);
    for (std::size_t i = 0; i < npoints; ++i)
    {
        const giVector3 place = geometry.points[i] - origin;
        for (const double value : {place.x(), place.y(), place.z()})
            mesh.positions.push_back(static_cast<float>(value));
    }
    if (geometry.normals)
    {
        mesh.normals.reserve(3 * npoints);
        for (std::size_t i = 0; i < npoints; ++i)
            for (const double value : {geometry.normals[i].x(), geometry.normals[i].y(), geometry.normals[i].z()})
                mesh.normals.push_back(static_cast<float>(value));
    }
    mesh.indices.reserve(3 * ntriangles);
    for (std::size_t i = 0; i < ntriangles; ++i)
        for (int corner = 0; corner < 3; ++corner)
        {
            const auto node = static_cast<std::size_t>(geometry.triangles[i][corner]);
            mesh.indices.push_back(static_cast<std::uint32_t>(node < npoints ? node : 0));
        }
    return mesh;
}

dgGLVertex vertex_at(const std::vector<float>& positions, std::size_t i, std::uint32_t normal)
{
    return {{positions[i], positions[i + 1], positions[i + 2]}, normal};
}

std::vector<dgGLVertex> own_vertices(const dgGLLevel& level)
{
    std::vector<dgGLVertex> vertices;
    vertices.reserve(level.positions.size() / 3);
    for (std::size_t i = 0; i < level.positions.size(); i += 3)
    {
        const float* n = level.normals.empty() ? nullptr : &level.normals[i];
        vertices.push_back(vertex_at(level.positions, i, n ? dgGLVertex::packed(n[0], n[1], n[2]) : 0));
    }
    return vertices;
}

// Whether bends turn no normal by what is seen: where surfaces are flat or like cylinders, they only change its length.
bool straight(const float* bends, const float (&normal)[3])
{
    const float square = normal[0] * normal[0] + normal[1] * normal[1] + normal[2] * normal[2];
    for (const float* bend = bends; bend < bends + 9; bend += 3)
    {
        const float along = (bend[0] * normal[0] + bend[1] * normal[1] + bend[2] * normal[2]) / square;
        for (int axis = 0; axis < 3; ++axis)
            if (!(std::abs(bend[axis] - along * normal[axis]) < least_bend))
                return false;
    }
    return true;
}

// Vertices of a curved level, which are numbered anew. Triangles share those of the same mark, and none where there are
// no bends to be seen; but the third corner of one with bends is its own, and these stand behind it.
std::vector<dgGLVertex> curved_vertices(dgGLLevel& level, unsigned block_vertices)
{
    constexpr std::size_t unmarked = 2;
    const auto packed = [](const float* v, float scale)
    {
        const auto part = [=](int axis) { return std::clamp(scale * v[axis], -1.0f, 1.0f); };
        return dgGLVertex::packed_as_is(part(0), part(1), part(2));
    };
    std::vector<dgGLVertex> vertices;
    const auto add = [&](std::size_t own, std::size_t corner)
    {
        vertices.push_back(
            vertex_at(level.positions, 3 * own, packed(&level.normals[3 * own], 1) | dgGLBends::corner(corner)));
        return static_cast<std::uint32_t>(block_vertices + vertices.size() - 1);
    };
    std::vector<std::uint32_t> shared(level.positions.size(), 0); // three marks; 0 for none yet, as block_vertices > 0
    for (std::size_t i = 0; i < level.indices.size(); i += 3)
    {
        std::size_t own[3];
        float mean[3] = {0, 0, 0};
        for (std::size_t corner = 0; corner < 3; ++corner)
        {
            own[corner] = level.indices[i + corner] - block_vertices;
            for (std::size_t axis = 0; axis < 3; ++axis)
                mean[axis] += level.normals[3 * own[corner] + axis] / 3;
        }
        const float* bends = &level.bends[3 * i];
        const bool plain = straight(bends, mean);
        for (std::size_t corner = 0; corner < (plain ? 3 : 2); ++corner)
        {
            const std::size_t mark = plain ? unmarked : corner;
            std::uint32_t& vertex = shared[3 * own[corner] + mark];
            if (!vertex)
                vertex = add(own[corner], mark);
            level.indices[i + corner] = vertex;
        }
        if (plain)
            continue;
        level.indices[i + 2] = add(own[2], 2);
        vertices.push_back(std::bit_cast<dgGLVertex>(
            dgGLBends{{packed(bends, 0.5f), packed(bends + 3, 0.5f), packed(bends + 6, 0.5f)}, 0}));
    }
    return vertices;
}

void add_triangles(dgGLIndexRanges& ranges, unsigned first_index, unsigned first, unsigned end)
{
    if (end > first)
        ranges.add(first_index + 3 * first, 3 * (end - first));
}
}

dgGLLevels::dgGLLevels(dgGLArena& vertices, dgGLArena& indices)
    : the_vertices(vertices), the_indices(indices), the_on(switched_on())
{}

void dgGLLevels::forget(unsigned geometry_id)
{
    const auto place = the_blocks.find(geometry_id);
    if (place == the_blocks.end())
        return;
    if (place->second.levels.empty() && place->second.asked_stamp)
        the_maker.cancel(geometry_id);
    the_with_levels -= !place->second.levels.empty();
    for (const Level& level : place->second.levels)
    {
        the_indices.release(level.first_index, 3 * level.level.triangles());
        if (level.vertex_count)
            the_vertices.release(level.first_vertex, level.vertex_count);
    }
    the_blocks.erase(place);
}

int dgGLLevels::has(unsigned geometry_id) const
{
    const auto place = the_blocks.find(geometry_id);
    return place != the_blocks.end() && !place->second.levels.empty();
}

void dgGLLevels::make(unsigned geometry_id, unsigned long long stamp, const dgGeometry& geometry,
                      const giPoint3& origin)
{
    if (!the_on || geometry.npoints == 0)
        return;
    Block& block = the_blocks[geometry_id];
    if (block.asked_stamp == stamp)
        return;
    block.asked_stamp = stamp;
    the_maker.add(geometry_id, stamp, mesh_of(geometry, origin));
}

void dgGLLevels::make_when_at_rest(unsigned geometry_id, unsigned long long stamp, const dgGeometry& geometry,
                                   const giPoint3& origin)
{
    if (!the_on)
        return;
    if (std::exchange(the_blocks[geometry_id].seen_stamp, stamp) == stamp)
        make(geometry_id, stamp, geometry, origin);
}

// Answers the number of indices.
unsigned dgGLLevels::upload(dgGLLevelMaker::Made& made, unsigned first_vertex, unsigned block_vertices)
{
    unsigned total = 0, nvertices = 0;
    std::vector<std::vector<dgGLVertex>> vertices;
    for (dgGLLevel& level : made.levels)
    {
        vertices.push_back(level.bends.empty() ? own_vertices(level) : curved_vertices(level, block_vertices));
        nvertices += static_cast<unsigned>(vertices.back().size());
        total += 3 * level.triangles();
    }
    the_indices.reserve(total);
    if (nvertices)
        the_vertices.reserve(nvertices);
    Block& block = the_blocks[made.geometry_id];
    ++the_with_levels;
    for (std::size_t i = 0; i < made.levels.size(); ++i)
    {
        dgGLLevel& level = made.levels[i];
        Level kept{the_indices.allocate(3 * level.triangles()), 0, 0, !level.bends.empty(), {}, {}};
        kept.vertex_count = static_cast<unsigned>(vertices[i].size());
        if (kept.vertex_count)
        {
            kept.first_vertex = the_vertices.allocate(kept.vertex_count);
            the_vertices.upload(kept.first_vertex, kept.vertex_count, vertices[i].data());
        }
        for (std::uint32_t& index : level.indices)
            index = index < block_vertices ? first_vertex + index : kept.first_vertex + (index - block_vertices);
        the_indices.upload(kept.first_index, 3 * level.triangles(), level.indices.data());
        level.positions = level.normals = level.bends = {};
        level.indices = {};
        kept.in_patches.assign(level.patches + 1, 0);
        for (unsigned group = 0; group < level.groups(); ++group)
            for (unsigned patch = 0; patch < level.patches; ++patch)
                kept.in_patches[patch + 1] += level.start(group, patch + 1) - level.start(group, patch);
        for (unsigned patch = 0; patch < level.patches; ++patch)
            kept.in_patches[patch + 1] += kept.in_patches[patch];
        kept.level = std::move(level);
        block.levels.push_back(std::move(kept));
    }
    return total;
}

unsigned dgGLLevels::add(unsigned geometry_id, double triangles, dgGLIndexRanges& ranges) const
{
    const auto place = the_blocks.find(geometry_id);
    if (place == the_blocks.end() || place->second.levels.empty())
        return 0;
    const std::vector<Level>& levels = place->second.levels;
    const auto fits = std::find_if(levels.begin(), levels.end(),
                                   [&](const Level& level) { return level.level.triangles() <= triangles; });
    if (fits == levels.end())
        return levels.back().level.triangles() <= 2 * triangles ? add_mix(levels.back(), nullptr, 0, ranges) : 0;
    return fits == levels.begin() ? add_mix(*fits, nullptr, 0, ranges)
                                  : add_mix(*(fits - 1), &*fits, triangles, ranges);
}

unsigned dgGLLevels::add_within(unsigned geometry_id, double error, dgGLIndexRanges& ranges) const
{
    const auto place = the_blocks.find(geometry_id);
    if (place == the_blocks.end())
        return 0;
    const std::vector<Level>& levels = place->second.levels;
    const auto coarsest =
        std::find_if(levels.rbegin(), levels.rend(), [&](const Level& level) { return level.level.error <= error; });
    return coarsest == levels.rend() ? 0 : add_mix(*coarsest, nullptr, 0, ranges);
}

// The coarser level with as many patches of the finer one in it as there is room for; the finer one alone for none.
unsigned dgGLLevels::add_mix(const Level& fine, const Level* coarse, double triangles, dgGLIndexRanges& ranges) const
{
    unsigned patches = fine.level.patches;
    const auto replaced = [&](unsigned patch) { return coarse ? coarse->level.start(patch, 0) : 0; };
    const unsigned coarse_triangles = coarse ? coarse->level.triangles() : 0;
    while (coarse && patches && fine.in_patches[patches] + coarse_triangles - replaced(patches) > triangles)
        --patches;
    ranges.curved = fine.curved;
    for (unsigned group = 0; patches && group < fine.level.groups(); ++group)
        add_triangles(ranges, fine.first_index, fine.level.start(group, 0), fine.level.start(group, patches));
    if (coarse)
    {
        ranges.curved = coarse->curved;
        add_triangles(ranges, coarse->first_index, replaced(patches), coarse_triangles);
    }
    ranges.curved = 0;
    return fine.in_patches[patches] + coarse_triangles - replaced(patches);
}
