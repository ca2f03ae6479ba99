#include "msReceiving.h"

#include "msChild.h"
#include "msMessages.h"
#include "msPlaces.h"

#include "gr_smooth_tblock.h"

#include <algorithm>
#include <cmath>
#include <istream>

namespace
{
// Room is made as values arrive: a count alone takes no memory that is used.
constexpr int piece = 1 << 14;
constexpr int most_reserved = 1 << 24;

template <class Value>
bool receive(std::istream& is, Value& value)
{
    return static_cast<bool>(is.read(reinterpret_cast<char*>(&value), sizeof value));
}

// Calls add with groups of N values, of which count come, and with how many at a time.
template <class Value, int N, class Add>
bool receive_pieces(std::istream& is, int count, const Add& add)
{
    std::vector<Value> values;
    for (int done = 0; done < count;)
    {
        const int some = std::min(piece, count - done);
        values.resize(static_cast<std::size_t>(some) * N);
        if (!is.read(reinterpret_cast<char*>(values.data()),
                     static_cast<std::streamsize>(values.size() * sizeof(Value))))
            return false;
        add(values.data(), some);
        done += some;
    }
    return true;
}

// The same, one by one.
template <class Value, int N, class Add>
bool receive_all(std::istream& is, int count, const Add& add)
{
    return receive_pieces<Value, N>(is, count,
                                    [&](const Value* v, int some)
                                    {
                                        for (const Value* end = v + some * N; v < end; v += N)
                                            add(v);
                                    });
}

giVector3 usable_normal(const float* n)
{
    // A node of triangles without area has no direction of its own.
    const giVector3 normal(n[0], n[1], n[2]);
    const double length = normal.length();
    return std::isfinite(length) && length > 0 ? normal / length : giVector3(0, 0, 1);
}

// Null when what comes is no mesh; fault is then set where the file is to blame.
std::unique_ptr<giTriBlock> receive_mesh(std::istream& is, const giAngle& crease, std::string& fault)
{
    msMeshHeader header{};
    if (!receive(is, header) || header.n_nodes < 0)
        return nullptr;
    auto block = std::make_unique<giTriBlock>();
    const auto room = [](int count) { return static_cast<std::size_t>(std::min(count, most_reserved)); };
    // Nodes that have nothing beside their place are joined as they come.
    const bool joined = !header.has_normals && !header.has_texture;
    std::vector<int> place_of;
    std::vector<giPoint3> nodes;
    if (joined)
    {
        msPlaces places;
        const bool lists_corners = header.n_nodes > header.n_faces; // of which six meet at a place
        places.points().reserve(room(lists_corners ? header.n_nodes / 5 : header.n_nodes));
        place_of.reserve(room(header.n_nodes));
        if (!receive_pieces<float, 3>(is, header.n_nodes,
                                      [&](const float* v, int count) { places.add(v, count, place_of); }))
            return nullptr;
        nodes = std::move(places.points());
    }
    else
    {
        nodes.reserve(room(header.n_nodes));
        if (!receive_all<float, 3>(is, header.n_nodes, [&](const float* v) { nodes.emplace_back(v[0], v[1], v[2]); }))
            return nullptr;
    }
    block->nodes() = giBoxArrPoint3(std::move(nodes));

    msCornersHeader corners{};
    if (!receive(is, corners) || corners.n_triangles < 0)
        return nullptr;
    std::vector<giTriangle>& triangles = block->triangles();
    triangles.reserve(room(corners.n_triangles));
    const auto add_triangle = [&](int p, int q, int r)
    {
        for (const int node : {p, q, r})
            if (node < 0 || node >= header.n_nodes)
                fault = "mesh " + std::to_string(header.number) + " has a face with node " + std::to_string(node) +
                        " of " + std::to_string(header.n_nodes);
        if (!fault.empty())
            return;
        const auto number = [&](int node) { return joined ? place_of[static_cast<std::size_t>(node)] : node; };
        triangles.emplace_back(number(p), number(q), number(r));
    };
    if (corners.in_order)
        for (int i = 0; i < corners.n_triangles && fault.empty(); ++i)
            add_triangle(3 * i, 3 * i + 1, 3 * i + 2);
    else if (!receive_all<int, 3>(is, corners.n_triangles, [&](const int* t) { add_triangle(t[0], t[1], t[2]); }))
        return nullptr;
    if (!fault.empty())
        return nullptr;

    std::vector<giVector3> normals;
    std::vector<giPoint2> texture;
    const auto add_normal = [&](const float* v) { normals.push_back(usable_normal(v)); };
    const auto add_place = [&](const float* v) { texture.emplace_back(v[0], v[1]); };
    if ((header.has_normals && !receive_all<float, 3>(is, header.n_nodes, add_normal)) ||
        (header.has_texture && !receive_all<float, 3>(is, header.n_nodes, add_place)))
        return nullptr;
    if (header.has_texture)
        block->create_texture_coordinates() = std::move(texture);
    if (header.has_normals)
    {
        block->create_normals() = std::move(normals);
        gr_join_tblock(*block);
    }
    else
        gr_smooth_tblock(*block, crease, joined);
    return block;
}
}

std::string ms_receive_file(std::istream& is, const giAngle& crease, const ms_block_taker& take,
                            const ms_progress& progress)
{
    int n_blocks = 0;
    for (msMessage message{}; receive(is, message);)
    {
        double share = 0;
        int length = 0;
        std::string fault;
        if (message == msEND)
            return n_blocks > 0 ? "" : "the file holds no triangles";
        if (message == msPROGRESS && receive(is, share) && progress)
            progress(share);
        if (message == msMESH)
        {
            std::unique_ptr<giTriBlock> block = receive_mesh(is, crease, fault);
            if (!block)
                return fault.empty() ? ms_broken_down : fault;
            if (block->triangle_count() == 0)
                continue;
            ++n_blocks;
            take(std::move(block));
        }
        if (message == msFAULT && receive(is, length) &&
            receive_all<char, 1>(is, length, [&](const char* c) { fault += *c; }))
            return fault;
    }
    return ms_broken_down;
}
