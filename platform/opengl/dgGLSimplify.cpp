#include "dgGLSimplify.h"

#include "dgGLFit.h"

#include <meshoptimizer.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace
{
using Index = std::uint32_t;
using Indices = std::vector<Index>;

// A patch is simplified in one piece: so many triangles at most, which takes about a twentieth of a second and bounds
// the memory; and no fewer than the least, as its outline is kept.
constexpr std::size_t most_in_patch = 32768, least_in_patch = 2048, enough_patches = 16;

// Of the triangles of a block its finest level has this share, and each other one this share of the one before or less
// than half: all levels together have three fifths of them.
constexpr double finest_level = 0.35, next_level = 0.4;

// Levels of this share and less have vertices of their own: facets are then seen as such, and those vertices are few.
constexpr double most_fitted = 0.1;

// Levels of this share and less are curved, where a block has normals: their facets take pixels enough to show it, and
// they are few enough for what it takes of memory, which is three times as much for each triangle.
constexpr double most_curved = 0.033;

// Turns of a normal that are not seen: half a step of its components in the driver's buffers.
constexpr float least_turn = 1.0f / 1024;

// A level is fitted to one with so many times its triangles, unless that has more than bounds the memory.
constexpr unsigned enough_finer = 3, enough_finer_than_curved = 12, most_fitted_to = 1000000;

// Levels end with a few triangles, or where outlines that must be kept let too few of them go.
constexpr std::size_t fewest_triangles = 48;
constexpr double least_reduction = 0.8, enough_reduction = 0.5;
constexpr float any_error = 1e10f;
constexpr double most_along_borders = 0.15;

std::size_t patch_count(std::size_t ntriangles)
{
    const std::size_t for_choice = std::min(enough_patches, ntriangles / least_in_patch);
    return std::max({std::size_t(1), for_choice, (ntriangles + most_in_patch - 1) / most_in_patch});
}

void add_unit(const float* v, std::vector<float>& to)
{
    const float length = std::sqrt(v[0] * v[0] + v[1] * v[1] + v[2] * v[2]);
    for (int axis = 0; axis < 3; ++axis)
        to.push_back(length > 0 ? v[axis] / length : 0);
}

class Simplifier
{
public:
    explicit Simplifier(dgGLMesh mesh) : the_normals(std::move(mesh.normals)) { weld(std::move(mesh)); }
    std::vector<dgGLLevel> levels(const std::stop_token& stop);

private:
    void weld(dgGLMesh mesh);
    std::vector<unsigned> divide(std::size_t npatches, int pass, const std::stop_token& stop) const;
    Indices simplified(const std::vector<unsigned>& patch_of, std::size_t npatches, std::vector<Index>& group_starts,
                       const std::stop_token& stop);
    Indices coarser(const std::vector<unsigned>& patch_of, std::size_t npatches, std::vector<Index>& group_starts,
                    const std::stop_token& stop);
    bool borders_kept() const;
    void sort_by_patch(const std::vector<unsigned>& patch_of, std::size_t npatches,
                       const std::vector<Index>& group_starts, dgGLLevel& level);
    void resolve(Indices& indices) const;
    dgGLShape shape_of(const Indices& vertices) const;
    std::vector<char> outlines(const dgGLLevel& level, const Indices& places, bool of_patches) const;
    void own_vertices(const dgGLShape& shape, const dgGLShape& fitted, dgGLLevel& level) const;
    void fit(const Indices& places, const std::vector<dgGLLevel>& finer, dgGLLevel& level, const std::stop_token& stop);
    void normal_of(const Index* places, float (&across)[3]) const;
    float along_normal(Index vertex, const float (&direction)[3]) const;
    Index vertex_for(Index place, const float (&direction)[3]) const;

    const float* position(Index place) const { return &the_positions[std::size_t(3) * place]; }
    std::size_t ntriangles() const { return the_triangles.size() / 3; }

    std::vector<float> the_normals;
    std::vector<float> the_positions; // of places: positions that vertices share
    Indices the_first_vertex;         // by place, into the_vertices
    Indices the_vertices;             // by place
    Indices the_triangles;            // of places, of the level that is being made coarser
    float the_size = 0;
    float the_error_limit = 0; // distance; 0 at first
    float the_pass_error = 0;  // of the last simplification
    bool the_finest_made = false;
    std::size_t the_whole = 0; // triangles of the block
    int the_winding = 0;       // 1 when these face as their normals do, -1 when they face away, 0 when some do either
    std::vector<dgGLShape> the_fitted; // levels by number; empty where they have not been fitted
    std::unordered_map<Index, std::array<float, 3>> the_moved; // by place, where patches of the last level meet
    Indices the_local;                                         // scratch: by place, its number in a patch
};

void Simplifier::weld(dgGLMesh mesh)
{
    const std::size_t nvertices = mesh.positions.size() / 3;
    for (float& value : mesh.positions)
        value += 0.0f; // 0 and -0 are one place
    Indices place(nvertices);
    const std::size_t nplaces = meshopt_generateVertexRemap(place.data(), nullptr, nvertices, mesh.positions.data(),
                                                            nvertices, 3 * sizeof(float));
    // Places are numbered as they are first met, so that they can be packed in place.
    for (std::size_t vertex = 0; vertex < nvertices; ++vertex)
        std::copy_n(&mesh.positions[3 * vertex], 3, &mesh.positions[std::size_t(3) * place[vertex]]);
    mesh.positions.resize(3 * nplaces);
    mesh.positions.shrink_to_fit();
    the_positions = std::move(mesh.positions);
    the_size = meshopt_simplifyScale(the_positions.data(), nplaces, 3 * sizeof(float));

    the_first_vertex.assign(nplaces + 1, 0);
    for (const Index p : place)
        ++the_first_vertex[p + 1];
    std::partial_sum(the_first_vertex.begin(), the_first_vertex.end(), the_first_vertex.begin());
    the_vertices.resize(nvertices);
    the_local = the_first_vertex;
    for (std::size_t vertex = 0; vertex < nvertices; ++vertex)
        the_vertices[the_local[place[vertex]]++] = static_cast<Index>(vertex);

    the_triangles = std::move(mesh.indices);
    std::size_t kept = 0, facing = 0, averted = 0;
    for (std::size_t i = 0; i + 2 < the_triangles.size(); i += 3)
    {
        const Index vertex = the_triangles[i];
        const Index corners[3] = {place[vertex], place[the_triangles[i + 1]], place[the_triangles[i + 2]]};
        if (corners[0] == corners[1] || corners[1] == corners[2] || corners[2] == corners[0])
            continue;
        if (!the_normals.empty())
        {
            float across[3];
            normal_of(corners, across);
            (along_normal(vertex, across) < 0 ? averted : facing) += 1;
        }
        for (const Index corner : corners)
            the_triangles[kept++] = corner;
    }
    the_triangles.resize(kept);
    the_whole = kept / 3;
    the_winding = 100 * averted < facing ? 1 : 100 * facing < averted ? -1 : 0;
    the_local.assign(nplaces, std::numeric_limits<Index>::max());
}

// Patch of each triangle: the triangles are halved along the longest side of their box until a patch is small enough.
// Every other pass halves unevenly, so that its outlines are not those of the pass before, which could then never go.
std::vector<unsigned> Simplifier::divide(std::size_t npatches, int pass, const std::stop_token& stop) const
{
    std::vector<unsigned> patch_of(ntriangles(), 0);
    if (npatches == 1)
        return patch_of;
    struct Part
    {
        std::size_t first, end;
        unsigned first_patch, patches;
    };
    std::vector<std::pair<float, Index>> keyed(ntriangles());
    for (std::size_t i = 0; i < keyed.size(); ++i)
        keyed[i].second = static_cast<Index>(i);
    std::vector<Part> parts{{0, keyed.size(), 0, static_cast<unsigned>(npatches)}};
    while (!parts.empty() && !stop.stop_requested())
    {
        const Part part = parts.back();
        parts.pop_back();
        const auto first = keyed.begin() + static_cast<std::ptrdiff_t>(part.first);
        const auto end = keyed.begin() + static_cast<std::ptrdiff_t>(part.end);
        if (part.patches == 1)
        {
            for (auto item = first; item != end; ++item)
                patch_of[item->second] = part.first_patch;
            continue;
        }
        float low[3], high[3];
        std::fill_n(low, 3, std::numeric_limits<float>::max());
        std::fill_n(high, 3, std::numeric_limits<float>::lowest());
        for (auto item = first; item != end; ++item)
            for (int axis = 0; axis < 3; ++axis)
            {
                const float value = position(the_triangles[std::size_t(3) * item->second])[axis];
                low[axis] = std::min(low[axis], value);
                high[axis] = std::max(high[axis], value);
            }
        int longest = 0;
        for (int axis = 1; axis < 3; ++axis)
            if (high[axis] - low[axis] > high[longest] - low[longest])
                longest = axis;
        for (auto item = first; item != end; ++item)
        {
            const Index* corners = &the_triangles[std::size_t(3) * item->second];
            item->first = position(corners[0])[longest] + position(corners[1])[longest] + position(corners[2])[longest];
        }
        const double share = pass % 2 ? 0.38 : 0.5;
        const unsigned patches = std::max(1u, static_cast<unsigned>(std::lround(part.patches * share)));
        const auto count = static_cast<std::size_t>(static_cast<double>(part.end - part.first) * share);
        std::nth_element(first, first + static_cast<std::ptrdiff_t>(count), end);
        parts.push_back({part.first, part.first + count, part.first_patch, patches});
        parts.push_back({part.first + count, part.end, part.first_patch + patches, part.patches - patches});
    }
    return patch_of;
}

// The triangles of the next level. The first one has the same share of every patch. From then on a limit of error, the
// same for all patches and raised until enough triangles go, takes more from flat ones than from those with detail.
Indices Simplifier::coarser(const std::vector<unsigned>& patch_of, std::size_t npatches,
                            std::vector<Index>& group_starts, const std::stop_token& stop)
{
    const double before = static_cast<double>(the_triangles.size());
    for (;;)
    {
        Indices next = simplified(patch_of, npatches, group_starts, stop);
        const double share = static_cast<double>(next.size()) / before;
        if (stop.stop_requested() || npatches == 1 || share < enough_reduction || !(the_error_limit < any_error))
            return next;
        the_error_limit = share > least_reduction ? 4 * the_error_limit : 2 * the_error_limit;
        if (the_error_limit > the_size)
            the_error_limit = any_error;
    }
}

// Whether open outlines stay as they are: until there are few triangles besides those along them. From then on blocks
// that meet may part by what the simplifier moves their outlines, which is less than it moves surfaces.
bool Simplifier::borders_kept() const
{
    std::unordered_set<std::uint64_t> open;
    for (std::size_t i = 0; i < the_triangles.size(); ++i)
    {
        const std::uint64_t from = the_triangles[i], to = the_triangles[i % 3 == 2 ? i - 2 : i + 1];
        if (!open.erase(to << 32 | from))
            open.insert(from << 32 | to);
    }
    return static_cast<double>(open.size()) < most_along_borders * static_cast<double>(ntriangles());
}

// The triangles of all patches, one after the other, simplified to the limit of error; group_starts tells where each
// begins.
Indices Simplifier::simplified(const std::vector<unsigned>& patch_of, std::size_t npatches,
                               std::vector<Index>& group_starts, const std::stop_token& stop)
{
    std::vector<Index> patch_starts(npatches + 1, 0);
    for (const unsigned patch : patch_of)
        ++patch_starts[patch + 1];
    std::partial_sum(patch_starts.begin(), patch_starts.end(), patch_starts.begin());
    Indices by_patch(patch_of.size());
    {
        std::vector<Index> next(patch_starts.begin(), patch_starts.end() - 1);
        for (std::size_t i = 0; i < patch_of.size(); ++i)
            by_patch[next[patch_of[i]]++] = static_cast<Index>(i);
    }
    Indices result, corners, made, places;
    std::vector<float> positions;
    std::vector<float> errors;
    const int whole = npatches == 1;
    const int first = whole || !(the_error_limit > 0);
    const double wanted = !first ? 0.125 : the_finest_made ? next_level : finest_level;
    const unsigned options = whole && !borders_kept() ? 0 : meshopt_SimplifyLockBorder;
    group_starts.assign(1, 0);
    result.reserve(static_cast<std::size_t>(1.05 * wanted * static_cast<double>(the_triangles.size())));
    for (std::size_t patch = 0; patch < npatches; ++patch)
    {
        if (stop.stop_requested())
            return {};
        corners.clear();
        places.clear();
        positions.clear();
        for (Index i = patch_starts[patch]; i < patch_starts[patch + 1]; ++i)
            for (int corner = 0; corner < 3; ++corner)
            {
                const Index place = the_triangles[std::size_t(3) * by_patch[i] + static_cast<std::size_t>(corner)];
                if (the_local[place] == std::numeric_limits<Index>::max())
                {
                    the_local[place] = static_cast<Index>(places.size());
                    places.push_back(place);
                    positions.insert(positions.end(), position(place), position(place) + 3);
                }
                corners.push_back(the_local[place]);
            }
        for (const Index place : places)
            the_local[place] = std::numeric_limits<Index>::max();
        made.resize(corners.size());
        const float size = std::max(meshopt_simplifyScale(positions.data(), places.size(), 3 * sizeof(float)),
                                    std::numeric_limits<float>::min());
        float error = 0;
        made.resize(meshopt_simplify(made.data(), corners.data(), corners.size(), positions.data(), places.size(),
                                     3 * sizeof(float),
                                     3 * static_cast<std::size_t>(wanted * static_cast<double>(corners.size() / 3)),
                                     first ? any_error : std::min(the_error_limit / size, any_error), options, &error));
        errors.push_back(error * size);
        for (const Index corner : made)
            result.push_back(places[corner]);
        group_starts.push_back(static_cast<Index>(result.size() / 3));
    }
    the_pass_error = errors.empty() ? 0 : *std::max_element(errors.begin(), errors.end());
    if (first && !whole)
    {
        const auto middle = errors.begin() + static_cast<std::ptrdiff_t>(errors.size() / 2);
        std::nth_element(errors.begin(), middle, errors.end());
        the_error_limit = std::max(*middle, 1e-6f * the_size);
    }
    return result;
}

// Puts the triangles of each group in the order of their patches.
void Simplifier::sort_by_patch(const std::vector<unsigned>& patch_of, std::size_t npatches,
                               const std::vector<Index>& group_starts, dgGLLevel& level)
{
    const std::size_t ngroups = group_starts.size() - 1;
    level.patches = static_cast<unsigned>(npatches);
    level.starts.assign(ngroups * npatches + 1, 0);
    level.indices.resize(the_triangles.size());
    std::vector<Index> next(npatches);
    for (std::size_t group = 0; group < ngroups; ++group)
    {
        std::fill(next.begin(), next.end(), 0);
        for (Index i = group_starts[group]; i < group_starts[group + 1]; ++i)
            ++next[patch_of[i]];
        Index start = group_starts[group];
        for (std::size_t patch = 0; patch < npatches; ++patch)
        {
            level.starts[group * npatches + patch] = start;
            start += std::exchange(next[patch], start);
        }
        for (Index i = group_starts[group]; i < group_starts[group + 1]; ++i)
            std::copy_n(&the_triangles[std::size_t(3) * i], 3, &level.indices[std::size_t(3) * next[patch_of[i]]++]);
    }
    level.starts.back() = static_cast<Index>(ntriangles());
}

Index Simplifier::vertex_for(Index place, const float (&direction)[3]) const
{
    const Index first = the_first_vertex[place], end = the_first_vertex[place + 1];
    Index best = the_vertices[first];
    if (end - first == 1 || the_normals.empty())
        return best;
    float best_cosine = -2;
    for (Index i = first; i < end; ++i)
    {
        const float cosine = along_normal(the_vertices[i], direction);
        if (cosine <= best_cosine)
            continue;
        best_cosine = cosine;
        best = the_vertices[i];
    }
    return best;
}

// Places become vertices. What simplifying has folded over is turned, so that it is not lit from behind.
void Simplifier::resolve(Indices& indices) const
{
    for (std::size_t i = 0; i < indices.size(); i += 3)
    {
        float across[3];
        normal_of(&indices[i], across);
        const float length = std::sqrt(across[0] * across[0] + across[1] * across[1] + across[2] * across[2]);
        if (length > 0)
            for (float& component : across)
                component *= static_cast<float>(the_winding < 0 ? -1 : 1) / length;
        Index best[3];
        float best_along = std::numeric_limits<float>::lowest();
        for (const int way : {1, -1})
        {
            float along = 0;
            Index vertices[3];
            for (std::size_t corner = 0; corner < 3; ++corner)
            {
                vertices[corner] = vertex_for(indices[i + corner], across);
                along += the_winding ? along_normal(vertices[corner], across) : 0;
            }
            if (!(along <= best_along)) // also what is no number
            {
                std::copy_n(vertices, 3, best);
                if (way < 0)
                    std::swap(best[1], best[2]);
            }
            if (!(along < 0))
                break;
            best_along = along;
            for (float& component : across)
                component = -component;
        }
        std::copy_n(best, 3, &indices[i]);
    }
}

// Of a triangle of places; its length is twice the area.
void Simplifier::normal_of(const Index* places, float (&across)[3]) const
{
    const float *a = position(places[0]), *b = position(places[1]), *c = position(places[2]);
    for (int axis = 0; axis < 3; ++axis)
    {
        const int next = (axis + 1) % 3, last = (axis + 2) % 3;
        across[axis] = (b[next] - a[next]) * (c[last] - a[last]) - (b[last] - a[last]) * (c[next] - a[next]);
    }
}

// The cosine between a unit vector and the normal of a vertex; -1 where that has none.
float Simplifier::along_normal(Index vertex, const float (&direction)[3]) const
{
    const float* n = &the_normals[std::size_t(3) * vertex];
    const float length = std::sqrt(n[0] * n[0] + n[1] * n[1] + n[2] * n[2]);
    return length > 0 ? (n[0] * direction[0] + n[1] * direction[1] + n[2] * direction[2]) / length : -1;
}

// Triangles over vertices of the block as a shape of its own.
dgGLShape Simplifier::shape_of(const Indices& vertices) const
{
    constexpr Index none = std::numeric_limits<Index>::max();
    dgGLShape shape;
    shape.indices.reserve(vertices.size());
    std::vector<Index> number(the_vertices.size(), none);
    for (const Index vertex : vertices)
        number[vertex] = 0;
    // In the order of places, each of which some vertices have.
    for (Index place = 0; place + 1 < the_first_vertex.size(); ++place)
        for (Index i = the_first_vertex[place]; i < the_first_vertex[place + 1]; ++i)
            if (number[the_vertices[i]] != none)
            {
                number[the_vertices[i]] = static_cast<Index>(shape.places.size());
                shape.places.push_back(place);
                shape.positions.insert(shape.positions.end(), position(place), position(place) + 3);
                if (!the_normals.empty())
                    add_unit(&the_normals[std::size_t(3) * the_vertices[i]], shape.normals);
            }
    for (const Index vertex : vertices)
        shape.indices.push_back(number[vertex]);
    return shape;
}

// Whether each place lies where groups of a level meet, which it has in common with the level before, or where its
// patches do, which the next one will have.
std::vector<char> Simplifier::outlines(const dgGLLevel& level, const Indices& places, bool of_patches) const
{
    std::vector<char> result(the_positions.size() / 3, 0);
    std::vector<Index> cell_of(result.size(), std::numeric_limits<Index>::max());
    for (unsigned group = 0; group < level.groups(); ++group)
        for (unsigned patch = 0; patch < level.patches; ++patch)
            for (std::size_t i = std::size_t(3) * level.start(group, patch);
                 i < std::size_t(3) * level.start(group, patch + 1); ++i)
            {
                const Index cell = of_patches ? patch : group;
                Index& known = cell_of[places[i]];
                if (known != cell && known != std::numeric_limits<Index>::max())
                    result[places[i]] = 1;
                known = cell;
            }
    return result;
}

// Gives a level what fitting has changed of its shape as vertices of its own.
void Simplifier::own_vertices(const dgGLShape& shape, const dgGLShape& fitted, dgGLLevel& level) const
{
    const auto differ = [](const std::vector<float>& a, const std::vector<float>& b, std::size_t vertex, float most)
    {
        for (std::size_t i = 3 * vertex; i < std::min(a.size(), 3 * vertex + 3); ++i)
            if (std::abs(a[i] - b[i]) > most)
                return true;
        return false;
    };
    const auto append = [](const std::vector<float>& from, std::size_t vertex, std::vector<float>& to)
    {
        if (!from.empty())
            to.insert(to.end(), &from[3 * vertex], &from[3 * vertex] + 3);
    };
    constexpr Index none = std::numeric_limits<Index>::max();
    const bool curved = !fitted.bends.empty();
    level.bends = fitted.bends;
    std::vector<Index> number(shape.places.size(), none);
    for (std::size_t i = 0; i < level.indices.size(); ++i)
    {
        const std::size_t vertex = shape.indices[i];
        if (number[vertex] == none)
        {
            number[vertex] = level.indices[i];
            if (curved || differ(shape.positions, fitted.positions, vertex, 0) ||
                differ(shape.normals, fitted.normals, vertex, least_turn))
            {
                number[vertex] = static_cast<Index>(the_vertices.size() + level.positions.size() / 3);
                append(fitted.positions, vertex, level.positions);
                append(fitted.normals, vertex, level.normals);
            }
        }
        level.indices[i] = number[vertex];
    }
}

// Gives a coarse level vertices of its own, fitted to a finer one that has some for each of them. What it shares with
// the level before lies where that has it, so that there are no gaps between patches of both.
void Simplifier::fit(const Indices& places, const std::vector<dgGLLevel>& finer, dgGLLevel& level,
                     const std::stop_token& stop)
{
    dgGLShape& fitted = the_fitted.emplace_back();
    if (finer.empty() || static_cast<double>(level.triangles()) > most_fitted * static_cast<double>(the_whole))
        return;
    const bool curved =
        !the_normals.empty() && static_cast<double>(level.triangles()) <= most_curved * static_cast<double>(the_whole);
    const unsigned enough = (curved ? enough_finer_than_curved : enough_finer) * level.triangles();
    std::size_t to = finer.size() - 1;
    while (to > 0 && (finer[to].triangles() < enough || !finer[to].bends.empty()) &&
           finer[to - 1].triangles() <= most_fitted_to)
        --to;
    const dgGLShape shape = shape_of(level.indices);
    const std::vector<char> shared = outlines(level, places, false);
    fitted = shape;
    for (std::size_t vertex = 0; vertex < shape.places.size(); ++vertex)
        if (const auto moved = the_moved.find(shape.places[vertex]); moved != the_moved.end() && shared[moved->first])
            std::copy_n(moved->second.begin(), 3, &fitted.positions[3 * vertex]);
    const bool known = !the_fitted[to].indices.empty();
    dg_gl_fit(known ? the_fitted[to] : shape_of(finer[to].indices), fitted, shared, curved, stop);
    const std::vector<char> shared_next = outlines(level, places, true);
    the_moved.clear();
    for (std::size_t vertex = 0; vertex < shape.places.size(); ++vertex)
        if (shared_next[shape.places[vertex]])
            std::copy_n(&fitted.positions[3 * vertex], 3, the_moved[shape.places[vertex]].begin());
    own_vertices(shape, fitted, level);
}

std::vector<dgGLLevel> Simplifier::levels(const std::stop_token& stop)
{
    std::vector<dgGLLevel> all;
    std::vector<Index> group_starts, next_group_starts;
    float error = 0;
    for (int pass = 0; !the_triangles.empty(); ++pass)
    {
        const std::size_t npatches = patch_count(ntriangles());
        Indices next;
        std::vector<unsigned> patch_of;
        if (ntriangles() > 2 * fewest_triangles)
        {
            patch_of = divide(npatches, pass, stop);
            if (pass > 1)
                the_error_limit = std::min(2 * the_error_limit, any_error);
            next = coarser(patch_of, npatches, next_group_starts, stop);
            if (stop.stop_requested())
                return {};
        }
        const bool last = next.empty() || static_cast<double>(next.size()) >
                                              least_reduction * static_cast<double>(the_triangles.size());
        if (pass)
        {
            dgGLLevel level;
            if (last)
            {
                patch_of.assign(ntriangles(), 0);
                sort_by_patch(patch_of, 1, group_starts, level);
            }
            else
                sort_by_patch(patch_of, npatches, group_starts, level);
            const Indices places = level.indices;
            resolve(level.indices);
            level.error = error;
            fit(places, all, level, stop);
            if (stop.stop_requested())
                return {};
            all.push_back(std::move(level));
        }
        if (last)
            break;
        the_finest_made = true;
        error += the_pass_error;
        the_triangles = std::move(next);
        group_starts = std::move(next_group_starts);
    }
    return all;
}
}

std::vector<dgGLLevel> dg_gl_simplify(dgGLMesh mesh, const std::stop_token& stop)
{
    return Simplifier(std::move(mesh)).levels(stop);
}
