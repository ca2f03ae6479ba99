#pragma once

#include "dgStructure.h"
#include "dgTriangleBlock.h"
#include "giTriBlock.h"

#include <epoxy/gl.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

/// A frame of plain OpenGL. The program of the last drawing is still the current one, with its values.
inline void bare_frame(unsigned vertex_array, GLsizei index_count, const void* offset)
{
    glBindVertexArray(vertex_array);
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    glDrawElements(GL_TRIANGLES, index_count, GL_UNSIGNED_INT, offset);
    glFinish();
}

/// One vertex buffer and one index buffer in the order of a structure's blocks and triangles.
class OwnBuffers
{
public:
    explicit OwnBuffers(const dgStructure& structure)
    {
        std::vector<Vertex> vertices;
        std::vector<std::uint32_t> indices;
        for (int i = 0; i < structure.nelements(); ++i)
            append(static_cast<const dgTriangleBlock&>(*structure.element(i)).block(), vertices, indices);
        the_index_count = static_cast<GLsizei>(indices.size());
        glGenVertexArrays(1, &the_vertex_array);
        glBindVertexArray(the_vertex_array);
        glGenBuffers(2, the_buffers);
        glBindBuffer(GL_ARRAY_BUFFER, the_buffers[0]);
        glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(vertices.size() * sizeof(Vertex)), vertices.data(),
                     GL_STATIC_DRAW);
        glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, the_buffers[1]);
        glBufferData(GL_ELEMENT_ARRAY_BUFFER, static_cast<GLsizeiptr>(indices.size() * sizeof(std::uint32_t)),
                     indices.data(), GL_STATIC_DRAW);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, sizeof(Vertex), nullptr);
        glVertexAttribPointer(1, 4, GL_INT_2_10_10_10_REV, GL_TRUE, sizeof(Vertex),
                              reinterpret_cast<const void*>(offsetof(Vertex, normal)));
        glEnableVertexAttribArray(0);
        glEnableVertexAttribArray(1);
    }
    ~OwnBuffers()
    {
        glDeleteBuffers(2, the_buffers);
        glDeleteVertexArrays(1, &the_vertex_array);
    }

    void frame() const { bare_frame(the_vertex_array, the_index_count, nullptr); }

    /// A frame of some ranges of triangles: counts of indices, and where they start in the index buffer, in bytes.
    void frame(const std::vector<GLsizei>& counts, const std::vector<const void*>& offsets) const
    {
        glBindVertexArray(the_vertex_array);
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
        glMultiDrawElements(GL_TRIANGLES, counts.data(), GL_UNSIGNED_INT, offsets.data(),
                            static_cast<GLsizei>(counts.size()));
        glFinish();
    }

private:
    struct Vertex
    {
        float position[3];
        std::uint32_t normal;
    };

    static std::uint32_t packed(const giVector3& n)
    {
        const auto bits = [](double c) { return static_cast<std::uint32_t>(std::lround(c * 511)) & 0x3ff; };
        return bits(n.x()) | bits(n.y()) << 10 | bits(n.z()) << 20;
    }

    static void append(const giTriBlock& block, std::vector<Vertex>& vertices, std::vector<std::uint32_t>& indices)
    {
        const auto base = static_cast<std::uint32_t>(vertices.size());
        for (int i = 0; i < block.node_count(); ++i)
        {
            const giPoint3& p = block.nodes()[i];
            vertices.push_back({{static_cast<float>(p.x()), static_cast<float>(p.y()), static_cast<float>(p.z())},
                                packed((*block.normals())[static_cast<std::size_t>(i)])});
        }
        for (const giTriangle& t : block.triangles())
            for (int corner = 0; corner < 3; ++corner)
                indices.push_back(base + static_cast<std::uint32_t>(t[corner]));
    }

    unsigned the_vertex_array = 0;
    unsigned the_buffers[2] = {};
    GLsizei the_index_count = 0;
};
