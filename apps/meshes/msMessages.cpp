#include "msMessages.h"

#include "msChild.h"
#include "msImport.h"
#include "msMeshFile.h"

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

// What comes before the numbers of a mesh.
struct MeshHeader
{
    int n_nodes;
    int n_corners;
    int has_normals;
    int has_texture;
};

// Room is made as values arrive: a count alone takes no memory that is used.
constexpr int piece = 1 << 16;
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

// Calls add with each of count groups of N values.
template <class Value, int N, class Add>
bool receive_all(std::istream& is, int count, const Add& add)
{
    std::vector<Value> values;
    for (int done = 0; done < count;)
    {
        const int some = std::min(piece, count - done);
        values.resize(static_cast<std::size_t>(some) * N);
        if (!is.read(reinterpret_cast<char*>(values.data()),
                     static_cast<std::streamsize>(values.size() * sizeof(Value))))
            return false;
        for (const Value* v = values.data(); v < values.data() + values.size(); v += N)
            add(v);
        done += some;
    }
    return true;
}

void send_mesh(std::ostream& os, const msMesh& mesh)
{
    send(os, MESH);
    send(os, MeshHeader{mesh.n_nodes, static_cast<int>(mesh.corners.size()), mesh.normals != nullptr,
                        mesh.texture != nullptr});
    send_all(os, mesh.positions, 3 * mesh.n_nodes);
    send_all(os, mesh.corners.data(), static_cast<int>(mesh.corners.size()));
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

std::unique_ptr<giTriBlock> receive_mesh(std::istream& is, const giAngle& crease)
{
    MeshHeader header{};
    if (!receive(is, header) || header.n_nodes < 0 || header.n_corners < 0 || header.n_corners % 3 != 0)
        return nullptr;
    auto block = std::make_unique<giTriBlock>();
    const auto room = [](int count) { return static_cast<std::size_t>(std::min(count, most_reserved)); };
    std::vector<giPoint3> nodes;
    nodes.reserve(room(header.n_nodes));
    if (!receive_all<float, 3>(is, header.n_nodes, [&](const float* v) { nodes.emplace_back(v[0], v[1], v[2]); }))
        return nullptr;
    block->nodes() = giBoxArrPoint3(std::move(nodes));

    std::vector<giTriangle>& triangles = block->triangles();
    triangles.reserve(room(header.n_corners / 3));
    bool good = true;
    const auto is_node = [&](int node) { return node >= 0 && node < header.n_nodes; };
    if (!receive_all<int, 3>(is, header.n_corners / 3,
                             [&](const int* t)
                             {
                                 good = good && is_node(t[0]) && is_node(t[1]) && is_node(t[2]);
                                 triangles.emplace_back(t[0], t[1], t[2]);
                             }) ||
        !good)
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
        gr_smooth_tblock(*block, crease);
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
    for (Message message{}; receive(is, message);)
    {
        double share = 0;
        int length = 0;
        std::string fault;
        if (message == END)
            return {};
        if (message == PROGRESS && receive(is, share) && progress)
            progress(share);
        if (message == MESH)
        {
            std::unique_ptr<giTriBlock> block = receive_mesh(is, crease);
            if (!block)
                return ms_broken_down;
            take(std::move(block));
        }
        if (message == FAULT && receive(is, length) &&
            receive_all<char, 1>(is, length, [&](const char* c) { fault += *c; }))
            return fault;
    }
    return ms_broken_down;
}
