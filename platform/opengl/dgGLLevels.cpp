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
#include <string>
#include <utility>

namespace
{
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

// Answers where they are, and changes nothing where there are none.
unsigned dgGLLevels::upload_vertices(dgGLLevel& level, unsigned& first_vertex)
{
    const auto count = static_cast<unsigned>(level.positions.size() / 3);
    if (!count)
        return 0;
    std::vector<dgGLVertex> vertices;
    vertices.reserve(count);
    for (std::size_t i = 0; i < level.positions.size(); i += 3)
    {
        const float* p = &level.positions[i];
        const float* n = level.normals.empty() ? nullptr : &level.normals[i];
        vertices.push_back({{p[0], p[1], p[2]}, n ? dgGLVertex::packed(n[0], n[1], n[2]) : 0});
    }
    first_vertex = the_vertices.allocate(count);
    the_vertices.upload(first_vertex, count, vertices.data());
    level.positions = level.normals = {};
    return count;
}

// Answers the number of indices.
unsigned dgGLLevels::upload(dgGLLevelMaker::Made& made, unsigned first_vertex, unsigned block_vertices)
{
    unsigned total = 0, vertices = 0;
    for (const dgGLLevel& level : made.levels)
    {
        total += 3 * level.triangles();
        vertices += static_cast<unsigned>(level.positions.size() / 3);
    }
    the_indices.reserve(total);
    if (vertices)
        the_vertices.reserve(vertices);
    Block& block = the_blocks[made.geometry_id];
    ++the_with_levels;
    for (dgGLLevel& level : made.levels)
    {
        Level kept{the_indices.allocate(3 * level.triangles()), 0, 0, {}, {}};
        kept.vertex_count = upload_vertices(level, kept.first_vertex);
        for (std::uint32_t& index : level.indices)
            index = index < block_vertices ? first_vertex + index : kept.first_vertex + (index - block_vertices);
        the_indices.upload(kept.first_index, 3 * level.triangles(), level.indices.data());
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
    for (unsigned group = 0; patches && group < fine.level.groups(); ++group)
        add_triangles(ranges, fine.first_index, fine.level.start(group, 0), fine.level.start(group, patches));
    if (coarse)
        add_triangles(ranges, coarse->first_index, replaced(patches), coarse_triangles);
    return fine.in_patches[patches] + coarse_triangles - replaced(patches);
}
