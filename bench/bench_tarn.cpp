// Reading a tarn file beside a bare std::from_chars pass over the numbers of the same bytes.
#include "gr_read_tarn_tblock.h"
#include "gr_write_tarn_tblock.h"

#include "giTriBlock.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <string>

namespace
{
using Clock = std::chrono::steady_clock;

// A wavy grid with normals and texture coordinates; every number has all its digits.
giTriBlock wavy_grid(int side)
{
    giTriBlock block;
    block.nodes().set(side * side - 1, giPoint3());
    auto& normals = block.create_normals();
    auto& texture = block.create_texture_coordinates();
    for (int row = 0; row < side; ++row)
        for (int column = 0; column < side; ++column)
        {
            const int node = row * side + column;
            const auto entry = static_cast<std::size_t>(node);
            const double x = 200.0 * column / side, y = 100.0 * row / side;
            block.nodes().set(node, giPoint3(x, y, 5 * std::sin(x / 7) * std::cos(y / 5)));
            normals[entry] = giVector3(std::cos(x / 7) * 5 / 7, std::sin(y / 5), 1).unit();
            texture[entry] = giPoint2(double(column) / side, double(row) / side);
            if (row + 1 < side && column + 1 < side)
            {
                block.triangles().push_back(giTriangle(node, node + 1, node + side));
                block.triangles().push_back(giTriangle(node + 1, node + side + 1, node + side));
            }
        }
    return block;
}

template <class T>
double bare_pass(const char*& position, const char* end, long long numbers)
{
    double sum = 0;
    for (long long i = 0; i < numbers; ++i)
    {
        while (position != end && (*position == ' ' || *position == '\n' || *position == '\r'))
            ++position;
        T value = 0;
        position = std::from_chars(position, end, value).ptr;
        sum += static_cast<double>(value);
    }
    return sum;
}

double seconds(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}
}

int main(int argc, char** argv)
{
    const int side = argc > 1 ? std::max(2, std::atoi(argv[1])) : 260;
    const giTriBlock block = wavy_grid(side);
    const giTriBlock* const blocks[] = {&block};
    std::ostringstream out;
    if (!gr_write_tarn_tblock(out, blocks, 1))
        return EXIT_FAILURE;
    const std::string text = out.str();
    const std::size_t numbers_start = text.find("from 1\n") + 7;

    double best_bare = 1e30, best_reader = 1e30;
    volatile double sink = 0;
    for (int repetition = 0; repetition < 41; ++repetition)
    {
        const char* position = text.data() + numbers_start;
        const char* end = text.data() + text.size();
        auto start = Clock::now();
        sink = bare_pass<double>(position, end, 8LL * block.node_count());
        sink = sink + bare_pass<int>(position, end, 3LL * block.triangle_count());
        best_bare = std::min(best_bare, seconds(start));

        std::istringstream in(text);
        int count = 0;
        start = Clock::now();
        const std::unique_ptr<giTriBlock> read(gr_read_tarn_tblock(in, count, nullptr));
        best_reader = std::min(best_reader, seconds(start));
        if (!read || !(*read == block))
        {
            std::fprintf(stderr, "bench_tarn: the file was not read back as written\n");
            return EXIT_FAILURE;
        }
    }
    const double megabytes = static_cast<double>(text.size()) / 1e6;
    std::printf("tarn, %d triangles, %.1f MB: reader %.0f MB/s, bare from_chars %.0f MB/s, ratio %.2f (goal 0.90)\n",
                block.triangle_count(), megabytes, megabytes / best_reader, megabytes / best_bare,
                best_bare / best_reader);
    return EXIT_SUCCESS;
}
