// Identifier images beside bare OpenGL: a thousand blocks of a thousand triangles are drawn in the colours of their
// numbers, read back and counted. The bare way draws all in one call from buffers that hold the colours, in a
// framebuffer of its own. Below that, the pixels of each block alone: in images that many blocks share, each in its own
// box, beside one whole image for each block. The ways take turns.
#include "benchTiming.h"
#include "grIdImage.h"
#include "grSplit.h"
#include "grSplitUtils.h"

#include "dgGLContext.h"
#include "dgGLDevice.h"
#include "dgGLWindow.h"
#include "dgImage.h"
#include "giTriBlock.h"

#include <epoxy/gl.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <numeric>
#include <string>
#include <vector>

namespace
{
constexpr int n_blocks = 1000;
constexpr int image_size = 1024; // pixels
constexpr int rounds = 15;

// Blocks in a square of 32 by 32, each a wavy sheet of 500 squares that leans over its neighbours.
std::vector<std::unique_ptr<giTriBlock>> sheets()
{
    constexpr int columns = 25, rows = 20;
    std::vector<std::unique_ptr<giTriBlock>> blocks;
    for (int i = 0; i < n_blocks; ++i)
    {
        auto block = std::make_unique<giTriBlock>();
        for (int row = 0; row <= rows; ++row)
            for (int column = 0; column <= columns; ++column)
            {
                const double x = 1.5 * column / columns, y = 1.5 * row / rows;
                block->nodes().append(
                    giPoint3(i % 32 + x, i / 32 + y, x + 0.5 * y + 0.1 * std::sin(7 * x + i) * std::cos(5 * y)));
            }
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
            {
                const int node = row * (columns + 1) + column;
                block->triangles().emplace_back(node, node + 1, node + columns + 2);
                block->triangles().emplace_back(node, node + columns + 2, node + columns + 1);
            }
        blocks.push_back(std::move(block));
    }
    return blocks;
}

unsigned compiled(unsigned type, const char* source)
{
    const unsigned shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    return shader;
}

class BareImage
{
public:
    BareImage(const std::vector<std::unique_ptr<giTriBlock>>& blocks, const giBox3& box)
    {
        struct Vertex
        {
            float position[3];
            unsigned char colour[4];
        };
        std::vector<Vertex> vertices;
        std::vector<std::uint32_t> indices;
        for (std::size_t i = 0; i < blocks.size(); ++i)
        {
            const auto base = static_cast<std::uint32_t>(vertices.size());
            for (const giPoint3& p : blocks[i]->nodes())
            {
                Vertex vertex{{}, {static_cast<unsigned char>(i), static_cast<unsigned char>(i >> 8), 0, 255}};
                const giVector3 share = (p - box.low()) / box.diagonal();
                for (int k = 0; k < 3; ++k)
                    vertex.position[k] = static_cast<float>((k == 2 ? 1 - 2 * share[k] : 2 * share[k] - 1));
                vertices.push_back(vertex);
            }
            for (const giTriangle& t : blocks[i]->triangles())
                for (int k = 0; k < 3; ++k)
                    indices.push_back(base + static_cast<std::uint32_t>(t[k]));
        }
        the_index_count = static_cast<GLsizei>(indices.size());
        glGenVertexArrays(1, &the_vertex_array);
        glBindVertexArray(the_vertex_array);
        unsigned buffers[2];
        glGenBuffers(2, buffers);
        glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(Vertex)), vertices.data(),
                     GL_STATIC_DRAW);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, buffers[1]);
        glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size() * sizeof(std::uint32_t)),
                     indices.data(), GL_STATIC_DRAW);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex), nullptr);
        glVertexAttribPointer(1, 4, GL_UNSIGNED_BYTE, GL_TRUE, sizeof(Vertex),
                              reinterpret_cast<const void*>(offsetof(Vertex, colour)));
        glEnableVertexAttribArray(0);
        glEnableVertexAttribArray(1);

        the_program = glCreateProgram();
        glAttachShader(the_program, compiled(GL_VERTEX_SHADER, "#version 330 core\n"
                                                               "layout(location = 0) in vec3 position;\n"
                                                               "layout(location = 1) in vec4 colour;\n"
                                                               "flat out vec4 shade;\n"
                                                               "void main() { shade = colour;\n"
                                                               "gl_Position = vec4(position, 1); }"));
        glAttachShader(the_program, compiled(GL_FRAGMENT_SHADER, "#version 330 core\n"
                                                                 "flat in vec4 shade;\n"
                                                                 "out vec4 colour;\n"
                                                                 "void main() { colour = shade; }"));
        glLinkProgram(the_program);

        unsigned renderbuffers[2];
        glGenRenderbuffers(2, renderbuffers);
        glBindRenderbuffer(GL_RENDERBUFFER, renderbuffers[0]);
        glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, image_size, image_size);
        glBindRenderbuffer(GL_RENDERBUFFER, renderbuffers[1]);
        glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH_COMPONENT24, image_size, image_size);
        glGenFramebuffers(1, &the_framebuffer);
        glBindFramebuffer(GL_FRAMEBUFFER, the_framebuffer);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, renderbuffers[0]);
        glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_ATTACHMENT, GL_RENDERBUFFER, renderbuffers[1]);
        the_pixels.resize(std::size_t(image_size) * image_size);
    }

    std::vector<int> counts()
    {
        int other_program = 0;
        glGetIntegerv(GL_CURRENT_PROGRAM, &other_program);
        glBindFramebuffer(GL_FRAMEBUFFER, the_framebuffer);
        glViewport(0, 0, image_size, image_size);
        glDisable(GL_SCISSOR_TEST);
        glEnable(GL_DEPTH_TEST);
        glDepthFunc(GL_LEQUAL);
        glUseProgram(the_program);
        glBindVertexArray(the_vertex_array);
        glClearColor(1, 1, 1, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glDrawElements(GL_TRIANGLES, the_index_count, GL_UNSIGNED_INT, nullptr);
        glReadPixels(0, 0, image_size, image_size, GL_RGBA, GL_UNSIGNED_BYTE, the_pixels.data());
        glUseProgram(static_cast<unsigned>(other_program)); // the driver remembers which one is in use
        std::vector<int> counts(n_blocks + 1);
        for (const std::uint32_t pixel : the_pixels)
            ++counts[std::min<std::uint32_t>(pixel & 0xFFFFFF, n_blocks)];
        counts.pop_back();
        return counts;
    }

private:
    unsigned the_vertex_array = 0, the_program = 0, the_framebuffer = 0;
    GLsizei the_index_count = 0;
    std::vector<std::uint32_t> the_pixels;
};

int fail(const std::string& reason)
{
    std::fprintf(stderr, "bench_visibility: %s\n", reason.c_str());
    return 1;
}
}

int main()
{
    std::string error;
    const std::shared_ptr<dgGLDevice> device = dgGLDevice::create_off_screen(error);
    if (!device)
        return fail(error);
    std::printf("%s\n%d blocks of 1000 triangles, %d x %d pixels, median of %d rounds\n", device->name().c_str(),
                n_blocks, image_size, image_size, rounds);
    const auto blocks = sheets();
    giTriBlockcoDList list;
    giBox3 box;
    for (const auto& block : blocks)
    {
        list.add_last(block.get());
        box.merge(block->box());
    }
    // Square, so that the bare image has the same pixels.
    box = giBox3(box.low(), giPoint3(box.low().x() + 33, box.low().y() + 33, box.high().z()));
    std::vector<int> all(n_blocks);
    std::iota(all.begin(), all.end(), 0);

    dgGLWindow window(device, image_size, image_size);
    grIdImage image;
    if (!image.initialize(&window, image_size, image_size, list, box))
        return fail("the window cannot be drawn in");
    BareImage bare(blocks, box);
    grPixelCountcoDynArr counts;
    std::vector<int> bare_counts;
    std::vector<double> image_times, bare_times, alone_times, whole_times;
    for (int round = 0; round < rounds + 2; ++round)
    {
        const double image_time = seconds(
            [&]
            {
                grSplitUtils::init(counts, n_blocks);
                image.count_pixels(image.make_image(box, all, grID_IMAGE_UPPER), counts);
            });
        // Whoever has drawn in the context between says so, or the driver would take its modes for set.
        device->modes_owner(nullptr);
        const double bare_time = seconds([&] { bare_counts = bare.counts(); });
        device->modes_owner(nullptr);
        if (round < 2)
            continue; // shaders are compiled and geometry is copied
        image_times.push_back(image_time);
        bare_times.push_back(bare_time);
    }
    int differing = 0;
    for (int i = 0; i < n_blocks; ++i)
        differing += std::abs(counts[i] - bare_counts[static_cast<std::size_t>(i)]);
    if (differing > image_size * image_size / 1000)
        return fail("the two ways count differently: " + std::to_string(differing) + " pixels");

    for (int round = 0; round < 5; ++round)
    {
        alone_times.push_back(seconds(
            [&]
            {
                grSplitUtils::init(counts, n_blocks);
                image.count_alone(box, all, grID_IMAGE_UPPER, counts);
            }));
        whole_times.push_back(seconds(
                                  [&]
                                  {
                                      for (int block = 0; block < n_blocks; block += 20) // of every twentieth
                                          image.count_pixels(image.make_image(box, {block}, grID_IMAGE_UPPER), counts);
                                  }) *
                              20);
    }
    std::printf("identifier image        %8.2f ms, bare draw, read-back and count %8.2f ms, ratio %.2f\n",
                1e3 * median(image_times), 1e3 * median(bare_times), median(image_times) / median(bare_times));
    std::printf("a block alone, own box  %8.3f ms, in a whole image            %8.3f ms, %.1f times cheaper\n",
                1e3 * median(alone_times) / n_blocks, 1e3 * median(whole_times) / n_blocks,
                median(whole_times) / median(alone_times));
    return 0;
}
