// Byte strings as tarn files: what is read is a mesh that can be written and read again, and what is not leaves
// nothing.
#include "gr_read_tarn_tblock.h"
#include "gr_write_tarn_tblock.h"

#include "giTriBlock.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace
{
void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz_tarn: %s\n", what);
    std::abort();
}

using Blocks = std::vector<std::unique_ptr<giTriBlock>>;

Blocks read(const std::string& text)
{
    std::istringstream stream(text);
    giTriBlockcoDList list;
    int count = -1;
    const giTriBlock* first = gr_read_tarn_tblock(stream, count, &list);
    Blocks blocks;
    for (giTriBlock* block : list)
        blocks.emplace_back(block);
    require(first ? first == blocks.front().get() : blocks.empty(), "the first block is not that of the list");
    require(static_cast<int>(blocks.size()) == (first ? count : 0), "the list does not hold the blocks counted");
    require(first ? !stream.fail() : count < 1 || stream.fail(), "the stream does not tell of a failure");
    return blocks;
}
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const Blocks blocks = read(std::string(reinterpret_cast<const char*>(data), size));
    std::vector<const giTriBlock*> pointers;
    for (const auto& block : blocks)
    {
        const auto nodes = static_cast<std::size_t>(block->node_count());
        require(!block->normals() || block->normals()->size() == nodes, "a node has no normal");
        require(!block->normals() == (block->curvatures() && block->curvatures()->size() == nodes),
                "a node has neither normal nor curvature, or both");
        require(!block->texture_coordinates() || block->texture_coordinates()->size() == nodes,
                "a node has no texture coordinate");
        for (const giTriangle& t : block->triangles())
            for (int k = 0; k < 3; ++k)
                require(t[k] >= 0 && t[k] < block->node_count(), "a triangle names a node that is not there");
        pointers.push_back(block.get());
    }
    if (blocks.empty())
        return 0;
    std::ostringstream written;
    const int count = static_cast<int>(pointers.size());
    require(gr_write_tarn_tblock(written, pointers.data(), count) == count, "a block that was read cannot be written");
    const Blocks again = read(written.str());
    require(again.size() == blocks.size(), "a file that was written cannot be read");
    for (std::size_t i = 0; i < blocks.size(); ++i)
        require(*again[i] == *blocks[i], "a block is read back otherwise");
    return 0;
}
