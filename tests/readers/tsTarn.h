#pragma once

#include "gr_read_tarn_tblock.h"

#include "giTriBlock.h"

#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// Blocks read from a text, owned.
struct tsTarn
{
    explicit tsTarn(const std::string& text)
    {
        std::istringstream stream(text);
        giTriBlockcoDList list;
        first = gr_read_tarn_tblock(stream, count, &list);
        failed = stream.fail();
        for (giTriBlock* block : list)
            blocks.emplace_back(block);
    }

    const giTriBlock& operator[](std::size_t number) const { return *blocks[number]; }

    std::vector<std::unique_ptr<giTriBlock>> blocks;
    giTriBlock* first = nullptr;
    int count = -1;
    bool failed = false;
};

/// Lines of a block up to its nodes; counts are the five ints.
inline std::string tarn_block_head(const std::string& counts)
{
    return "skipped 1\nskipped 2\nskipped 3\n" + counts + " rest\n1\n2\n3\n4\n5\n6\n7\n8\n";
}

const char* const tarn_three_nodes = "0 0 0  0 0 1  0.25 0.5\n"
                                     "1 0 0  0 1 0  0.75 0.5\n"
                                     "0 2 0  1 0 0  0.25 1\n";

/// One block of three nodes and one triangle.
inline std::string tarn_triangle(const std::string& vector_mode, const std::string& texture_flag)
{
    return tarn_block_head(vector_mode + " " + texture_flag + " 3 1 0") + tarn_three_nodes + "1 2 3\n";
}

/// A whole file around the text of its blocks.
inline std::string tarn_file(const std::string& count, const std::string& blocks, int index_lines = 1)
{
    std::string text = "a title\n*\n" + count + " blocks\n";
    for (int line = 0; line < index_lines; ++line)
        text += "1 2 3 4 5\n";
    return text + blocks;
}
