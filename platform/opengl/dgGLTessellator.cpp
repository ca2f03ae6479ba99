#include "dgGLTessellator.h"

#include <GL/glu.h>

#include <array>
#include <deque>
#include <memory>

namespace
{
#if !defined(CALLBACK)
#define CALLBACK
#endif

struct Delete
{
    void operator()(GLUtesselator* tessellator) const { gluDeleteTess(tessellator); }
};

struct Job
{
    dgGLTriangles& triangles;
    std::deque<std::array<double, 3>> corners; // GLU keeps pointers to them
    std::array<int, 3> open{};                 // of the triangle that is being made
    int n_open = 0;
    int failed = 0;

    // The place of a point in the result goes to GLU and back as a pointer to its position in this deque.
    std::deque<int> places;

    int* add(double x, double y)
    {
        triangles.points.emplace_back(x, y);
        places.push_back(static_cast<int>(triangles.points.size()) - 1);
        return &places.back();
    }
};

void CALLBACK vertex(void* place, void* data)
{
    Job& job = *static_cast<Job*>(data);
    job.open[static_cast<std::size_t>(job.n_open++)] = *static_cast<int*>(place);
    if (job.n_open < 3)
        return;
    job.n_open = 0;
    job.triangles.triangles.emplace_back(job.open[0], job.open[1], job.open[2]);
}

void CALLBACK begin(GLenum, void*) {}

// That it is asked for makes GLU give triangles alone, no fans and strips.
void CALLBACK edge_flag(GLboolean, void*) {}

void CALLBACK combine(GLdouble position[3], void* [4], GLfloat[4], void** place, void* data)
{
    *place = static_cast<Job*>(data)->add(position[0], position[1]);
}

void CALLBACK error(GLenum, void* data)
{
    static_cast<Job*>(data)->failed = 1;
}

using Function = void(CALLBACK*)();
}

int dg_gl_tessellate(const std::vector<std::vector<giPoint2>>& contours, dgGLTriangles& triangles)
{
    const std::unique_ptr<GLUtesselator, Delete> tessellator(gluNewTess());
    if (!tessellator)
        return 0;
    GLUtesselator* tess = tessellator.get();
    Job job{triangles, {}, {}, 0, 0, {}};
    gluTessCallback(tess, GLU_TESS_BEGIN_DATA, reinterpret_cast<Function>(begin));
    gluTessCallback(tess, GLU_TESS_VERTEX_DATA, reinterpret_cast<Function>(vertex));
    gluTessCallback(tess, GLU_TESS_EDGE_FLAG_DATA, reinterpret_cast<Function>(edge_flag));
    gluTessCallback(tess, GLU_TESS_COMBINE_DATA, reinterpret_cast<Function>(combine));
    gluTessCallback(tess, GLU_TESS_ERROR_DATA, reinterpret_cast<Function>(error));
    gluTessProperty(tess, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_NONZERO);
    gluTessNormal(tess, 0, 0, 1);
    gluTessBeginPolygon(tess, &job);
    for (const std::vector<giPoint2>& contour : contours)
    {
        gluTessBeginContour(tess);
        for (const giPoint2& point : contour)
        {
            job.corners.push_back({point.x(), point.y(), 0});
            gluTessVertex(tess, job.corners.back().data(), job.add(point.x(), point.y()));
        }
        gluTessEndContour(tess);
    }
    gluTessEndPolygon(tess);
    return !job.failed;
}
