// Cutting a triangle block by a plane beside the filters of VTK that clip, and a bare cut of the same mesh. All take
// turns and keep normals and texture coordinates. Times are processor time on one thread: VTK's threads are turned off.
// The cut and the bare cut change a copy of the mesh, which is not timed; VTK leaves its input alone and makes its
// result anew. vtkPolyDataPlaneClipper knows one side only: for both it runs once for each side.
//
// Threads are turned off through the header below vtkSMPTools.h, for that one is no valid C++20 in VTK 9.1.
#include "benchBareCut.h"
#include "benchCutMesh.h"
#include "benchTiming.h"

#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include <SMP/Common/vtkSMPToolsAPI.h>
#include <vtkCellArray.h>
#include <vtkClipDataSet.h>
#include <vtkClipPolyData.h>
#include <vtkDoubleArray.h>
#include <vtkNew.h>
#include <vtkPlane.h>
#include <vtkPointData.h>
#include <vtkPoints.h>
#include <vtkPolyData.h>
#include <vtkPolyDataPlaneClipper.h>
#include <vtkTableBasedClipDataSet.h>
#include <vtkUnstructuredGrid.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>

namespace
{
struct Figures
{
    const char* name;
    double best_seconds = 1e30;
    long long triangles = 0;
    bool has_attributes = true; // the result has normals and texture coordinates
};

template <class Work>
void measure(Figures& figures, Work work)
{
    figures.best_seconds = std::min(figures.best_seconds, processor_seconds(work));
}

vtkNew<vtkPolyData> vtk_mesh(const giTriBlock& block)
{
    const vtkNew<vtkDoubleArray> normals, texture;
    normals->SetNumberOfComponents(3);
    texture->SetNumberOfComponents(2);
    const vtkNew<vtkPoints> points;
    points->SetDataTypeToDouble();
    for (int i = 0; i < block.node_count(); ++i)
    {
        const giPoint3& p = block.nodes().data()[i];
        const giVector3& n = (*block.normals())[static_cast<std::size_t>(i)];
        const giPoint2& t = (*block.texture_coordinates())[static_cast<std::size_t>(i)];
        points->InsertNextPoint(p.x(), p.y(), p.z());
        normals->InsertNextTuple3(n.x(), n.y(), n.z());
        texture->InsertNextTuple2(t.x(), t.y());
    }
    const vtkNew<vtkCellArray> triangles;
    for (const giTriangle& t : block.triangles())
    {
        const vtkIdType nodes[] = {t[0], t[1], t[2]};
        triangles->InsertNextCell(3, nodes);
    }
    vtkNew<vtkPolyData> mesh;
    mesh->SetPoints(points);
    mesh->SetPolys(triangles);
    mesh->GetPointData()->SetNormals(normals);
    mesh->GetPointData()->SetTCoords(texture);
    // What VTK keeps with a mesh and makes when it is first asked for is no part of a cut.
    mesh->BuildCells();
    mesh->ComputeBounds();
    return mesh;
}

vtkNew<vtkPlane> vtk_plane(double sign)
{
    const giPoint3 origin = bench_cut_plane.point();
    const giVector3 normal = bench_cut_plane.normal() * sign;
    vtkNew<vtkPlane> plane;
    plane->SetOrigin(origin.x(), origin.y(), origin.z());
    plane->SetNormal(normal.x(), normal.y(), normal.z());
    return plane;
}

// Polygons count as the triangles that they fall into: some filters leave the pieces with four corners whole.
long long triangle_count(vtkCellArray* cells)
{
    return cells->GetNumberOfConnectivityIds() - 2 * cells->GetNumberOfCells();
}

long long triangle_count(vtkPolyData* mesh)
{
    return triangle_count(mesh->GetPolys());
}

long long triangle_count(vtkUnstructuredGrid* mesh)
{
    return triangle_count(mesh->GetCells());
}

template <class Mesh>
bool has_attributes(Mesh* mesh)
{
    return mesh->GetPointData()->GetNormals() && mesh->GetPointData()->GetTCoords();
}

void plane_clip(Figures& figures, vtkPolyData* mesh, bool both)
{
    const vtkNew<vtkPolyDataPlaneClipper> positive, negative;
    positive->SetInputData(mesh);
    positive->SetPlane(vtk_plane(1));
    negative->SetInputData(mesh);
    negative->SetPlane(vtk_plane(-1));
    measure(figures,
            [&]
            {
                positive->Update();
                if (both)
                    negative->Update();
            });
    figures.triangles = triangle_count(positive->GetOutput());
    figures.has_attributes = has_attributes(positive->GetOutput());
    if (both)
        figures.triangles += triangle_count(negative->GetOutput());
}

template <class Filter>
void filter_clip(Figures& figures, vtkPolyData* mesh, bool both)
{
    const vtkNew<Filter> filter;
    filter->SetInputData(mesh);
    filter->SetClipFunction(vtk_plane(1));
    filter->SetGenerateClippedOutput(both);
    measure(figures, [&] { filter->Update(); });
    figures.triangles = triangle_count(filter->GetOutput());
    figures.has_attributes = has_attributes(filter->GetOutput());
    if (both)
        figures.triangles += triangle_count(filter->GetClippedOutput());
}

void cut(Figures& figures, const giTriBlock& original, bool both)
{
    giTriBlock block = original;
    measure(figures, [&] { grTriCut::cut(block, grTriCutterPlane(bench_cut_plane, 1e-6), both); });
    figures.triangles = block.triangle_count();
}

void bare_cut(Figures& figures, const giTriBlock& original, bool both)
{
    benchBareMesh mesh(original, false);
    measure(figures, [&] { benchBareCut(mesh, bench_cut_plane).run(both); });
    figures.triangles = static_cast<long long>(mesh.triangles.size() / 3);
}

// The first run finds the caches as the one before it has left them, the second as its own kind has.
template <class Work>
void twice(Work work)
{
    work();
    work();
}
}

int main()
{
    if (!vtk::detail::smp::vtkSMPToolsAPI::GetInstance().SetBackend("Sequential"))
        return std::printf("VTK's threads cannot be turned off\n"), 1;
    std::printf("%-9s %-5s %-25s %11s %7s\n", "triangles", "keeps", "cut by", "ns/triangle", "ratio");
    for (const int size : {100000, 1000000})
    {
        const giTriBlock original = bench_ring(size);
        const vtkNew<vtkPolyData> mesh = vtk_mesh(original);
        const double n = original.triangle_count();
        const int rounds = std::max(4, 2000000 / size);
        for (const bool both : {false, true})
        {
            Figures bare{"bare cut"};
            Figures others[] = {{"grTriCut"},
                                {"vtkPolyDataPlaneClipper"},
                                {"vtkClipPolyData"},
                                {"vtkTableBasedClipDataSet"},
                                {"vtkClipDataSet"}};
            for (int round = 0; round < rounds; ++round)
            {
                twice([&] { bare_cut(bare, original, both); });
                twice([&] { cut(others[0], original, both); });
                twice([&] { plane_clip(others[1], mesh, both); });
                twice([&] { filter_clip<vtkClipPolyData>(others[2], mesh, both); });
                twice([&] { filter_clip<vtkTableBasedClipDataSet>(others[3], mesh, both); });
                twice([&] { filter_clip<vtkClipDataSet>(others[4], mesh, both); });
            }
            const char* keeps = both ? "both" : "one";
            std::printf("%-9.0f %-5s %-25s %11.2f %7.2f\n", n, keeps, bare.name, bare.best_seconds / n * 1e9, 1.);
            for (const Figures& other : others)
            {
                std::printf("%-9.0f %-5s %-25s %11.2f %7.2f\n", n, keeps, other.name, other.best_seconds / n * 1e9,
                            other.best_seconds / bare.best_seconds);
                if (other.triangles != bare.triangles)
                    return std::printf("gives %lld triangles, not %lld\n", other.triangles, bare.triangles), 1;
                if (!other.has_attributes)
                    return std::printf("has lost normals or texture coordinates\n"), 1;
            }
        }
    }
    return 0;
}
