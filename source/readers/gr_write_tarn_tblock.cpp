#include "gr_write_tarn_tblock.h"

#include "giTriBlock.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <ostream>
#include <string>

namespace
{
const std::size_t piece = 64 * 1024;
const double no_curvature = std::numeric_limits<double>::max();

// Collects text and hands it to the stream in large pieces.
class tarn_text
{
public:
    explicit tarn_text(std::ostream& stream) : the_stream(stream) { the_text.reserve(piece + 256); }

    void add(const char* text) { the_text += text; }
    template <class T>
    void add_number(T value)
    {
        char digits[40];
        const auto result = std::to_chars(digits, digits + sizeof digits, value);
        the_text.append(digits, result.ptr);
        the_text += ' ';
    }
    void end_line()
    {
        if (!the_text.empty() && the_text.back() == ' ')
            the_text.pop_back();
        the_text += '\n';
        if (the_text.size() >= piece)
            flush();
    }
    void flush()
    {
        the_stream.write(the_text.data(), static_cast<std::streamsize>(the_text.size()));
        the_text.clear();
    }

private:
    std::ostream& the_stream;
    std::string the_text;
};

template <class T>
bool finite(const T& v, int components)
{
    for (int i = 0; i < components; ++i)
        if (!std::isfinite(v[i]))
            return false;
    return true;
}

bool finite(const giTriBlock::curvature_pair& pair)
{
    return std::isfinite(pair[0]) && std::isfinite(pair[1]);
}

bool writable(const giTriBlock& block)
{
    const auto nodes = static_cast<std::size_t>(block.node_count());
    if ((block.normals() && block.normals()->size() < nodes) ||
        (block.curvatures() && block.curvatures()->size() < nodes) ||
        (block.texture_coordinates() && block.texture_coordinates()->size() < nodes))
        return false;
    for (std::size_t node = 0; node < nodes; ++node)
    {
        if (!finite(block.nodes()[static_cast<int>(node)], 3) ||
            (block.normals() && !finite((*block.normals())[node], 3)) ||
            (!block.normals() && block.curvatures() && !finite((*block.curvatures())[node])) ||
            (block.texture_coordinates() && !finite((*block.texture_coordinates())[node], 2)))
            return false;
    }
    for (const giTriangle& triangle : block.triangles())
        for (int vertex = 0; vertex < 3; ++vertex)
            if (triangle[vertex] < 0 || triangle[vertex] >= block.node_count())
                return false;
    return true;
}

void write_point(tarn_text& text, const char* name, const giPoint3& p)
{
    text.add(name);
    text.add_number(p.x());
    text.add_number(p.y());
    text.add_number(p.z());
    text.end_line();
}

void write_node(tarn_text& text, const giTriBlock& block, int number)
{
    const auto node = static_cast<std::size_t>(number);
    giVector3 values(no_curvature, 0, 0);
    if (block.normals())
        values = (*block.normals())[node];
    else if (block.curvatures())
        values = giVector3((*block.curvatures())[node][0], (*block.curvatures())[node][1], 0);
    const giPoint2 texture = block.texture_coordinates() ? (*block.texture_coordinates())[node] : giPoint2();

    for (int i = 0; i < 3; ++i)
        text.add_number(block.nodes()[number][i]);
    for (int i = 0; i < 3; ++i)
        text.add_number(values[i]);
    text.add_number(texture.x());
    text.add_number(texture.y());
    text.end_line();
}

void write_block(tarn_text& text, const giTriBlock& block, int number)
{
    text.end_line();
    text.add("block ");
    text.add_number(number);
    text.end_line();
    text.add("vector mode, texture flag, nodes, triangles, unused");
    text.end_line();
    text.add_number(block.normals() ? 1 : 0);
    text.add_number(block.texture_coordinates() ? 1 : 0);
    text.add_number(block.node_count());
    text.add_number(block.triangle_count());
    text.add_number(0);
    text.end_line();

    const giBox3 box = block.node_count() ? block.box() : giBox3(giPoint3(), giPoint3());
    write_point(text, "box low ", box.low());
    write_point(text, "box high ", box.high());
    for (int line = 2; line < 7; ++line)
        text.end_line();
    text.add("x y z, vector values, texture coordinate; then node numbers from 1");
    text.end_line();

    for (int node = 0; node < block.node_count(); ++node)
        write_node(text, block, node);
    for (const giTriangle& triangle : block.triangles())
    {
        for (int vertex = 0; vertex < 3; ++vertex)
            text.add_number(triangle[vertex] + 1);
        text.end_line();
    }
    // Readers skip the rest of the last line, which for a block without nodes is a whole line.
    if (block.node_count() == 0 && block.triangle_count() == 0)
        text.end_line();
}
}

int gr_write_tarn_tblock(std::ostream& stream, const giTriBlock* const* blocks, int count)
{
    for (int number = 0; number < count; ++number)
        if (!blocks[number] || !writable(*blocks[number]))
            return 0;
    if (count < 1 || !stream.good())
        return 0;

    tarn_text text(stream);
    text.add("triangle blocks");
    text.end_line();
    text.add("*");
    text.end_line();
    text.add_number(count);
    text.end_line();
    for (int number = 1; number <= count; ++number)
    {
        text.add_number(number);
        if (number % 5 == 0 || number == count)
            text.end_line();
    }
    for (int number = 0; number < count; ++number)
        write_block(text, *blocks[number], number + 1);
    text.flush();
    stream.flush();
    return stream.good() ? count : 0;
}
