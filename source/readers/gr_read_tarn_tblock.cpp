#include "gr_read_tarn_tblock.h"

#include "grTarnScanner.h"

#include "giTriBlock.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace
{
// Arrays grow by this many entries at a time while their numbers arrive, so that a count alone allocates nothing.
const int batch = 1024;
const std::size_t shortest_node = 16;    // eight numbers of one digit, with their separators
const std::size_t shortest_triangle = 6; // three
const int normals_mode = 1;

struct block_counts
{
    int vector_mode = 0;
    int texture_flag = 0;
    int nodes = 0;
    int triangles = 0;
};

bool read_counts(grTarnScanner& scanner, block_counts& counts)
{
    int unused = 0;
    if (!scanner.read(counts.vector_mode) || !scanner.read(counts.texture_flag) || !scanner.read(counts.nodes) ||
        !scanner.read(counts.triangles) || !scanner.read(unused))
        return false;
    scanner.skip_rest_of_line();
    return counts.nodes >= 0 && counts.triangles >= 0;
}

giTriBlock::curvature_pair curvature(double first, double second)
{
    // The files write "none" as the lowest double, the blocks hold it as the largest. The second value is kept as is.
    if (first == std::numeric_limits<double>::lowest())
        first = std::numeric_limits<double>::max();
    return {first, second};
}

bool read_nodes(grTarnScanner& scanner, const block_counts& counts, giTriBlock& block)
{
    const bool with_normals = counts.vector_mode == normals_mode;
    const std::size_t room = scanner.room(static_cast<std::size_t>(counts.nodes), shortest_node);

    // An empty block has its optional arrays too.
    std::vector<giPoint3> nodes;
    std::vector<giVector3>* normals = with_normals ? &block.create_normals() : nullptr;
    std::vector<giTriBlock::curvature_pair>* curvatures = with_normals ? nullptr : &block.create_curvatures();
    std::vector<giPoint2>* texture = counts.texture_flag ? &block.create_texture_coordinates() : nullptr;
    nodes.reserve(room);
    if (normals)
        normals->reserve(room);
    if (curvatures)
        curvatures->reserve(room);
    if (texture)
        texture->reserve(room);

    for (int first = 0; first < counts.nodes; first += std::min(batch, counts.nodes - first))
    {
        const auto start = static_cast<std::size_t>(first);
        const auto end = start + static_cast<std::size_t>(std::min(batch, counts.nodes - first));
        nodes.resize(end);
        if (normals)
            normals->resize(end);
        if (curvatures)
            curvatures->resize(end);
        if (texture)
            texture->resize(end);
        for (std::size_t node = start; node < end; ++node)
        {
            double v[8];
            for (double& value : v)
                if (!scanner.read(value))
                    return false;
            nodes[node] = giPoint3(v[0], v[1], v[2]);
            if (normals)
                (*normals)[node] = giVector3(v[3], v[4], v[5]);
            else
                (*curvatures)[node] = curvature(v[3], v[4]);
            if (texture)
                (*texture)[node] = giPoint2(v[6], v[7]);
        }
    }
    block.nodes() = giBoxArrPoint3(std::move(nodes));
    return true;
}

bool read_triangles(grTarnScanner& scanner, const block_counts& counts, giTriBlock& block)
{
    std::vector<giTriangle>& triangles = block.triangles();
    triangles.reserve(scanner.room(static_cast<std::size_t>(counts.triangles), shortest_triangle));
    for (int first = 0; first < counts.triangles; first += std::min(batch, counts.triangles - first))
    {
        const auto start = static_cast<std::size_t>(first);
        const auto end = start + static_cast<std::size_t>(std::min(batch, counts.triangles - first));
        triangles.resize(end);
        for (std::size_t triangle = start; triangle < end; ++triangle)
            for (int vertex = 0; vertex < 3; ++vertex)
            {
                int node = 0;
                if (!scanner.read(node) || node < 1 || node > counts.nodes)
                    return false;
                triangles[triangle][vertex] = node - 1;
            }
    }
    return true;
}

std::unique_ptr<giTriBlock> read_block(grTarnScanner& scanner)
{
    block_counts counts;
    auto block = std::make_unique<giTriBlock>();
    if (!scanner.skip_lines(3) || !read_counts(scanner, counts) || !scanner.skip_lines(8) ||
        !read_nodes(scanner, counts, *block) || !read_triangles(scanner, counts, *block))
        return nullptr;
    scanner.skip_rest_of_line();
    return block;
}

bool skip_header(grTarnScanner& scanner)
{
    char first = 0;
    while (scanner.skip_line(first))
        if (first == '*')
            return true;
    return false;
}

// Reads the whole file, keeping only the first block unless all are wanted. Returns false when it is damaged.
bool read_blocks(grTarnScanner& scanner, int& count, bool all, std::vector<std::unique_ptr<giTriBlock>>& blocks)
{
    if (!skip_header(scanner) || !scanner.read(count))
        return false;
    scanner.skip_rest_of_line();
    if (count < 1)
        return true;
    if (!scanner.skip_lines((count - 1) / 5 + 1))
        return false;
    for (int number = 0; number < count; ++number)
    {
        std::unique_ptr<giTriBlock> block = read_block(scanner);
        if (!block)
            return false;
        if (all || blocks.empty())
            blocks.push_back(std::move(block));
    }
    return true;
}
}

giTriBlock* gr_read_tarn_tblock(std::istream& stream, int& count, giTriBlockcoDList* blocks)
{
    count = 0;
    try
    {
        std::vector<std::unique_ptr<giTriBlock>> read;
        grTarnScanner scanner(stream);
        if (read_blocks(scanner, count, blocks != nullptr, read))
        {
            scanner.give_back();
            if (read.empty())
                return nullptr;
            giTriBlock* first = read.front().get();
            if (blocks)
                blocks->reserve(blocks->count() + static_cast<int>(read.size()));
            else
                read.front().release();
            for (auto& block : read)
                if (block && blocks)
                    blocks->add_last(block.release());
            return first;
        }
    }
    catch (const std::bad_alloc&)
    {
        // Fails below like any other file that cannot be read.
    }
    stream.setstate(std::ios::failbit);
    return nullptr;
}
