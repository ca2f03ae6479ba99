// What in-place edits and ends cost by the number of places that they touch: each at n and at 4 n, whose ratio is 4
// where the cost is linear and 16 where it grows with the square.
#include "dgClientStructure.h"
#include "dgLineColour.h"
#include "dgPolyline.h"
#include "dgRenderer.h"
#include "dgStructureCall.h"
#include "dgTraceWindow.h"
#include "dgTransform.h"
#include "dgView.h"
#include "gsStructureFlattener.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace
{
double milliseconds(const auto& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// A network and a flat copy of it, both drawn once.
struct Scene
{
    dgTraceWindow window{100, 100};
    dgRenderer renderer{&window, nullptr};
    dgView view{&renderer};
    dgRef<dgStructure> root{new dgClientStructure}, flat{new dgClientStructure};

    void draw(dgStructure* structure)
    {
        view.root(structure);
        view.render_network(nullptr);
    }
    void flatten()
    {
        gsStructureFlattener flattener(root.get(), flat.get(), -1);
        renderer.render_action(&flattener);
        draw(root.get());
        renderer.render_action(nullptr);
        draw(flat.get());
    }
    // Of an edit and the next drawing of both.
    double cost(const auto& edit)
    {
        return milliseconds(
            [&]
            {
                edit();
                draw(root.get());
                draw(flat.get());
            });
    }
};

double shared_primitive(int n)
{
    Scene scene;
    const dgRef<dgPolyline> line(new dgPolyline({{0, 0, 0}, {1, 1, 0}}));
    const dgRef<dgStructure> part(new dgClientStructure);
    part->add(line.get());
    for (int i = 0; i < n; ++i)
    {
        scene.root->add(new dgTransform(giXform3::translation(giVector3(i != 0, 0, 0))));
        scene.root->add(new dgStructureCall(part.get()));
    }
    scene.flatten();
    return scene.cost([&] { line->points({{0, 0, 0}, {2, 1, 0}}); });
}

double moved_lines(int n)
{
    Scene scene;
    std::vector<dgPolyline*> lines;
    for (int i = 0; i < n; ++i)
        scene.root->add(lines.emplace_back(new dgPolyline({{0, 0, 0}, {1.0 * i, 1, 0}})));
    scene.flatten();
    return scene.cost(
        [&]
        {
            for (dgPolyline* line : lines)
                line->points({{0, 0, 0}, {2, 1, 0}});
        });
}

double ended_structures(int n)
{
    const dgRef<dgLineColour> colour(new dgLineColour(gsColour(1, 0, 0)));
    std::vector<dgRef<dgStructure>> structures;
    for (int i = 0; i < n; ++i)
    {
        structures.emplace_back(new dgClientStructure);
        structures.back()->add(colour.get());
    }
    return milliseconds([&] { structures.clear(); });
}

void report(const char* name, double (*cost)(int))
{
    constexpr int n = 25000, repetitions = 5;
    double one = 1e30, four = 1e30;
    for (int i = 0; i < repetitions; ++i)
    {
        one = std::min(one, cost(n));
        four = std::min(four, cost(4 * n));
    }
    std::printf("%-48s %8.2f ms at %d, %8.2f ms at %d: ratio %.1f (goal at most 8)\n", name, one, n, four, 4 * n,
                four / one);
}
}

int main()
{
    report("a primitive at n places, edited", shared_primitive);
    report("n lines of one structure, moved", moved_lines);
    report("n structures with a common attribute, destroyed", ended_structures);
}
