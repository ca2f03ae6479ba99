#include "gr_read_tarn_tblock.h"

#include "grTarnScanner.h"

#include "giTriBlock.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <new>
#include <string>
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

// A scanner, and the first thing that it did not find.
struct tarn_reading
{
    grTarnScanner scanner;
    std::string& complaint;

    bool expected(const std::string& what)
    {
        const std::string found = scanner.word();
        complaint = scanner.place() + ": " +
                    (found.empty() ? "the file ends where " + what + " should be"
                                   : what + " should be where '" + found + "' is");
        return false;
    }
};

bool read_counts(tarn_reading& reading, block_counts& counts)
{
    int unused = 0;
    for (int* count : {&counts.vector_mode, &counts.texture_flag, &counts.nodes, &counts.triangles, &unused})
        if (!reading.scanner.read(*count))
            return reading.expected("one of the five whole numbers that a block starts with");
    if (counts.nodes < 0 || counts.triangles < 0)
    {
        reading.complaint = reading.scanner.place() + ": " + std::to_string(counts.nodes) + " nodes and " +
                            std::to_string(counts.triangles) + " triangles are no block";
        return false;
    }
    reading.scanner.skip_rest_of_line();
    return true;
}

giTriBlock::curvature_pair curvature(double first, double second)
{
    // The files write "none" as the lowest double, the blocks hold it as the largest. The second value is kept as is.
    if (first == std::numeric_limits<double>::lowest())
        first = std::numeric_limits<double>::max();
    return {first, second};
}

bool read_nodes(tarn_reading& reading, const block_counts& counts, giTriBlock& block)
{
    grTarnScanner& scanner = reading.scanner;
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
                    return reading.expected("a finite number of node " + std::to_string(node + 1));
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

bool read_triangles(tarn_reading& reading, const block_counts& counts, giTriBlock& block)
{
    grTarnScanner& scanner = reading.scanner;
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
                if (!scanner.read(node))
                    return reading.expected("a node of triangle " + std::to_string(triangle + 1));
                if (node < 1 || node > counts.nodes)
                {
                    reading.complaint = scanner.place() + ": triangle " + std::to_string(triangle + 1) + " has node " +
                                        std::to_string(node) + " of " + std::to_string(counts.nodes);
                    return false;
                }
                triangles[triangle][vertex] = node - 1;
            }
    }
    return true;
}

std::unique_ptr<giTriBlock> read_block(tarn_reading& reading)
{
    block_counts counts;
    auto block = std::make_unique<giTriBlock>();
    if (!reading.scanner.skip_lines(3) || !read_counts(reading, counts))
        return nullptr;
    if (!reading.scanner.skip_lines(8))
    {
        reading.expected("one of the eight lines before the nodes");
        return nullptr;
    }
    if (!read_nodes(reading, counts, *block) || !read_triangles(reading, counts, *block))
        return nullptr;
    reading.scanner.skip_rest_of_line();
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

using block_taker = std::function<void(std::unique_ptr<giTriBlock>)>;

// Reads the whole file. Returns false when it is damaged.
bool read_blocks(tarn_reading& reading, int& count, const block_taker& take)
{
    grTarnScanner& scanner = reading.scanner;
    if (!skip_header(scanner))
    {
        reading.complaint = "this is no tarn file: no line starts with '*'";
        return false;
    }
    if (!scanner.read(count))
        return reading.expected("the number of blocks");
    scanner.skip_rest_of_line();
    if (count < 1)
        return true;
    if (!scanner.skip_lines((count - 1) / 5 + 1))
        return reading.expected("the index of " + std::to_string(count) + " blocks");
    for (int number = 0; number < count; ++number)
    {
        std::unique_ptr<giTriBlock> block = read_block(reading);
        if (!block)
        {
            if (reading.complaint.empty())
                reading.expected("block " + std::to_string(number + 1) + " of " + std::to_string(count));
            return false;
        }
        take(std::move(block));
    }
    return true;
}

// Sets the stream's fail bit, and the complaint, and returns false, when it is damaged.
bool read_stream(std::istream& stream, int& count, const block_taker& take, std::string& complaint)
{
    count = 0;
    complaint.clear();
    try
    {
        tarn_reading reading{grTarnScanner(stream), complaint};
        if (read_blocks(reading, count, take))
        {
            reading.scanner.give_back();
            return true;
        }
    }
    catch (const std::bad_alloc&)
    {
        complaint = "there is not enough memory for its blocks";
    }
    stream.setstate(std::ios::failbit);
    return false;
}
}

giTriBlock* gr_read_tarn_tblock(std::istream& stream, int& count, giTriBlockcoDList* blocks)
{
    std::string complaint;
    return gr_read_tarn_tblock(stream, count, blocks, complaint);
}

giTriBlock* gr_read_tarn_tblock(std::istream& stream, int& count, giTriBlockcoDList* blocks, std::string& complaint)
{
    std::vector<std::unique_ptr<giTriBlock>> read;
    const auto keep = [&](std::unique_ptr<giTriBlock> block)
    {
        if (blocks || read.empty())
            read.push_back(std::move(block));
    };
    if (!read_stream(stream, count, keep, complaint) || read.empty())
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

int gr_read_tarn_tblock(std::istream& stream, const block_taker& take, std::string& complaint)
{
    int count = 0;
    return read_stream(stream, count, take, complaint) && count > 0 ? count : 0;
}
