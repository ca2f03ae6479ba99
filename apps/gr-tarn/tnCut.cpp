#include "tnCut.h"

#include "tnCap.h"
#include "tnProgress.h"
#include "tnTarnFile.h"

#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "giPlane.h"

#include <ostream>

namespace
{
constexpr double relative_tolerance = 1e-7; // of the model's diagonal

struct Side
{
    giPlane plane; // its positive side is kept
    const char* name;
};

// Appends what is left of the blocks on a side, and its cap. Answers how many ends of the cut are open.
int keep_side(const tn_blocks& blocks, const Side& side, double tolerance, int with_cap, tnProgress& bar, double done,
              double share, tn_blocks& kept)
{
    tn_blocks half;
    const grTriCutterPlane cutter(side.plane, tolerance);
    for (std::size_t i = 0; i < blocks.size(); ++i)
    {
        bar.show(done + share * static_cast<double>(i) / static_cast<double>(blocks.size()));
        auto block = std::make_unique<giTriBlock>(*blocks[i]);
        grTriCut::cut(*block, cutter, 0);
        if (block->triangle_count() > 0)
            half.push_back(std::move(block));
    }
    int open_ends = 0;
    if (with_cap)
    {
        auto cap = std::make_unique<giTriBlock>();
        open_ends = tn_make_cap(half, side.plane, tolerance, *cap);
        if (cap->triangle_count() > 0)
            half.push_back(std::move(cap));
    }
    for (auto& block : half)
        kept.push_back(std::move(block));
    return open_ends;
}
}

int tn_cut(const tnCutOptions& options, std::ostream& out, std::ostream* progress, std::string& error)
{
    const giVector3 normal(options.plane[0], options.plane[1], options.plane[2]);
    if (!(normal.length() > 0))
    {
        error = "a plane needs a normal: nx, ny and nz are all 0";
        return 0;
    }
    tn_blocks blocks;
    {
        tnProgress bar(progress, "reading");
        if (!tn_read(options.input, blocks, error, bar))
            return 0;
    }
    giBox3 box;
    for (const auto& block : blocks)
        box.merge(block->box());
    const double tolerance = box.empty() ? 0 : relative_tolerance * box.diagonal().length();
    const giPoint3 point(normal.unit() * (options.plane[3] / normal.length()));
    const Side sides[] = {{giPlane(point, normal), "positive"}, {giPlane(point, -normal), "negative"}};

    tn_blocks kept;
    {
        tnProgress bar(progress, "cutting");
        const int n_sides = options.keep_both ? 2 : 1;
        for (int i = 0; i < n_sides; ++i)
            if (const int open_ends =
                    keep_side(blocks, sides[i], tolerance, options.cap, bar, i * (1.0 / n_sides), 1.0 / n_sides, kept))
                out << "the cut is open in " << open_ends << " places on the " << sides[i].name
                    << " side, where the mesh is; the cap leaves them out\n";
    }
    if (kept.empty())
    {
        error = options.input + ": nothing lies on the side of the plane that is kept";
        return 0;
    }
    tnProgress bar(progress, "writing");
    return tn_write(options.output, kept, error, bar);
}
