#include "spSurface.h"

#include "spDelaunay.h"
#include "spOutline.h"
#include "spProfile.h"

#if defined(__APPLE__)
#include <OpenGL/glu.h>
#else
#include <GL/glu.h>
#endif

#include <cstdint>
#include <memory>
#include <vector>

namespace
{
const double texture_length = 50; // millimetres

using node_numbers = std::vector<int>;

void begin_triangles(GLenum, void*) {}
void end_triangles(void*) {}
// Its presence makes the tessellator give triangles alone, no fans or strips.
void edge_flag(GLboolean, void*) {}

void take_vertex(void* vertex, void* data)
{
    static_cast<node_numbers*>(data)->push_back(static_cast<int>(reinterpret_cast<std::intptr_t>(vertex)));
}

template <class Function>
void set_callback(GLUtesselator* tessellator, GLenum which, Function* function)
{
    gluTessCallback(tessellator, which, reinterpret_cast<void (*)()>(function));
}
}

void spSurface::sweep(const spOutline& outline, const spProfile& profile)
{
    const int columns = outline.count();
    double height = 0;
    for (const spProfile::piece& piece : profile.pieces())
    {
        const int rows = static_cast<int>(piece.points.size()) - 1;
        the_count += 2 * columns * rows;
        if (!the_block)
            continue;

        const int first = the_block->node_count();
        for (int row = 0; row <= rows; ++row)
        {
            const giPoint2& p = piece.points[static_cast<std::size_t>(row)];
            const giVector2& n = piece.normals[static_cast<std::size_t>(row)];
            if (row > 0)
                height += p.distance(piece.points[static_cast<std::size_t>(row) - 1]);
            // One column more than there are points: texture coordinates start anew at the seam.
            for (int column = 0; column <= columns; ++column)
            {
                const giVector2 out = outline.outwards(column) * n.x();
                add_node(outline.at(column, p.x(), p.y()), giVector3(out.x(), out.y(), n.y()),
                         giPoint2(outline.distance(column) / texture_length, height / texture_length));
            }
        }
        for (int row = 0; row < rows; ++row)
            for (int column = 0; column < columns; ++column)
            {
                const int node = first + row * (columns + 1) + column, above = node + columns + 1;
                the_block->triangles().push_back(giTriangle(node, node + 1, above + 1));
                the_block->triangles().push_back(giTriangle(node, above + 1, above));
            }
    }
}

void spSurface::face(double z, bool up, const std::vector<loop>& loops)
{
    for (const loop& l : loops)
        the_count += l.outline.count() + 2;
    the_count -= 4;
    if (!the_block)
        return;

    const std::unique_ptr<GLUtesselator, void (*)(GLUtesselator*)> tessellator(gluNewTess(), gluDeleteTess);
    set_callback(tessellator.get(), GLU_TESS_BEGIN_DATA, begin_triangles);
    set_callback(tessellator.get(), GLU_TESS_END_DATA, end_triangles);
    set_callback(tessellator.get(), GLU_TESS_EDGE_FLAG_DATA, edge_flag);
    set_callback(tessellator.get(), GLU_TESS_VERTEX_DATA, take_vertex);
    gluTessNormal(tessellator.get(), 0, 0, up ? 1 : -1);

    node_numbers corners; // in threes
    gluTessBeginPolygon(tessellator.get(), &corners);
    for (const loop& l : loops)
    {
        gluTessBeginContour(tessellator.get());
        for (int index = 0; index < l.outline.count(); ++index)
        {
            const giPoint3 p = l.outline.at(index, l.offset, z);
            GLdouble position[3] = {p.x(), p.y(), 0};
            const std::intptr_t node =
                add_node(p, giVector3(0, 0, up ? 1 : -1), giPoint2(p.x() / texture_length, p.y() / texture_length));
            gluTessVertex(tessellator.get(), position, reinterpret_cast<void*>(node));
        }
        gluTessEndContour(tessellator.get());
    }
    gluTessEndPolygon(tessellator.get());
    std::vector<giTriangle> triangles;
    for (std::size_t corner = 0; corner + 2 < corners.size(); corner += 3)
        triangles.push_back(giTriangle(corners[corner], corners[corner + 1], corners[corner + 2]));
    // The tessellator leaves slivers, and triangles of no area along straight edges that are cut into pieces.
    sp_make_delaunay(the_block->nodes(), giVector3(0, 0, up ? 1 : -1), triangles);
    the_block->triangles().insert(the_block->triangles().end(), triangles.begin(), triangles.end());
}

int spSurface::add_node(const giPoint3& p, const giVector3& normal, const giPoint2& texture)
{
    // The arrays are made before the node, or they would have an entry for it already.
    auto& normals = the_block->create_normals();
    auto& textures = the_block->create_texture_coordinates();
    the_block->nodes().append(p);
    normals.push_back(normal);
    textures.push_back(texture);
    return the_block->node_count() - 1;
}
