#include "msMessages.h"

#include "msChild.h"
#include "msImport.h"
#include "msMeshFile.h"
#include "msPlaces.h"

#include "flMessages.h"

#include "gr_smooth_tblock.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <istream>
#include <new>
#include <ostream>
#include <type_traits>

namespace
{
// What a child says, one character before each: how much is done, a mesh, the end of a file, or what is wrong.
enum Message : char
{
    PROGRESS = 'p',
    MESH = 'm',
    END = 'e',
    FAULT = 'f'
};

// What comes before the positions of a mesh.
struct MeshHeader
{
    int number; // in its file, from 1
    int n_nodes;
    int n_faces; // of triangles and others
    int has_normals;
    int has_texture;
};

// What comes before the corners of its triangles.
struct CornersHeader
{
    int n_triangles;
    int in_order; // the corners are all nodes as they come, and not sent
};

// Room is made as values arrive: a count alone takes no memory that is used.
constexpr int piece = 1 << 14;
constexpr int most_reserved = 1 << 24;

template <class Value>
void send(std::ostream& os, const Value& value)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    os.write(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Value>
void send_all(std::ostream& os, const Value* values, int count)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    os.write(reinterpret_cast<const char*>(values), static_cast<std::streamsize>(sizeof(Value)) * count);
}

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

void send_mesh(std::ostream& os, const msMesh& mesh)
{
    send(os, MESH);
    send(os, MeshHeader{mesh.number, mesh.n_nodes, mesh.n_faces, mesh.normals != nullptr, mesh.texture != nullptr});
    send_all(os, mesh.positions, 3 * mesh.n_nodes);
    // These are gathered while the other side is busy with the positions.
    const std::vector<int> corners = mesh.corners();
    const int count = static_cast<int>(corners.size());
    bool in_order = count == mesh.n_nodes;
    for (int i = 0; i < count && in_order; ++i)
        in_order = corners[static_cast<std::size_t>(i)] == i;
    send(os, CornersHeader{count / 3, in_order});
    if (!in_order)
        send_all(os, corners.data(), count);
    if (mesh.normals)
        send_all(os, mesh.normals, 3 * mesh.n_nodes);
    if (mesh.texture)
        send_all(os, mesh.texture, 3 * mesh.n_nodes);
    os.flush();
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
    MeshHeader header{};
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

    CornersHeader corners{};
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

void ms_send_files(const std::vector<std::string>& files, std::ostream& os)
{
    const ms_progress progress = [&os](double share)
    {
        send(os, PROGRESS);
        send(os, share);
        os.flush();
    };
    for (const std::string& file : files)
    {
        std::string fault;
        try
        {
            ms_import(
                file, ms_ending(file), [&os](const msMesh& mesh) { send_mesh(os, mesh); }, fault, progress);
        }
        catch (const std::bad_alloc&)
        {
            fault = ms_no_memory;
        }
        catch (const std::exception& exception)
        {
            fault = fl_printable(exception.what());
        }
        send(os, fault.empty() ? END : FAULT);
        if (fault.empty())
            continue;
        send(os, static_cast<int>(fault.size()));
        send_all(os, fault.data(), static_cast<int>(fault.size()));
        return;
    }
}

std::string ms_receive_file(std::istream& is, const giAngle& crease, const ms_block_taker& take,
                            const ms_progress& progress)
{
    int n_blocks = 0;
    for (Message message{}; receive(is, message);)
    {
        double share = 0;
        int length = 0;
        std::string fault;
        if (message == END)
            return n_blocks > 0 ? "" : "the file holds no triangles";
        if (message == PROGRESS && receive(is, share) && progress)
            progress(share);
        if (message == MESH)
        {
            std::unique_ptr<giTriBlock> block = receive_mesh(is, crease, fault);
            if (!block)
                return fault.empty() ? ms_broken_down : fault;
            if (block->triangle_count() == 0)
                continue;
            ++n_blocks;
            take(std::move(block));
        }
        if (message == FAULT && receive(is, length) &&
            receive_all<char, 1>(is, length, [&](const char* c) { fault += *c; }))
            return fault;
    }
    return ms_broken_down;
}
