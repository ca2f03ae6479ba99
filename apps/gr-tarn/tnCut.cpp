#include "tnCut.h"

#include "flProgress.h"
#include "tnNumbers.h"

#include "flMessages.h"
#include "msTarnFile.h"

#include "grTriCut.h"
#include "grTriCutterPlane.h"

#include "dg_cap_tblocks.h"
#include "giPlane.h"

#include <cmath>
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
int keep_side(const ms_blocks& blocks, const Side& side, double tolerance, int with_cap, flProgress& bar, double done,
              double share, ms_blocks& kept)
{
    ms_blocks half;
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
        giTriBlockcoDList cut;
        for (const auto& block : half)
            cut.add_last(block.get());
        auto cap = std::make_unique<giTriBlock>();
        open_ends = dg_cap_tblocks(cut, side.plane, tolerance, *cap);
        if (cap->triangle_count() > 0)
            half.push_back(std::move(cap));
    }
    for (auto& block : half)
        kept.push_back(std::move(block));
    return open_ends;
}
}

int tn_cut(const tnCutOptions& options, std::ostream& notes, std::ostream* progress, std::string& error)
{
    double size = 0;
    const giVector3 normal = tn_direction(options.plane, size);
    if (!(size > 0))
    {
        error = "a plane needs a normal: nx, ny and nz are all 0";
        return 0;
    }
    const double scaled_normal =
        giVector3(options.plane[0] / size, options.plane[1] / size, options.plane[2] / size).length();
    const double distance = options.plane[3] / size / scaled_normal;
    if (!std::isfinite(distance))
    {
        error = "the plane is too far away: its distance d has no number when the normal gets the length 1";
        return 0;
    }
    ms_blocks blocks;
    {
        flProgress bar(progress, "reading");
        if (!ms_read_tarn(options.input, blocks, error, bar.reporter()))
            return 0;
    }
    giBox3 box;
    for (const auto& block : blocks)
        box.merge(block->box());
    const double tolerance = box.empty() ? 0 : relative_tolerance * box.diagonal().length();
    const giPoint3 point(normal * distance);
    const Side sides[] = {{giPlane(point, normal), "positive"}, {giPlane(point, -normal), "negative"}};

    ms_blocks kept;
    {
        flProgress bar(progress, "cutting");
        const int n_sides = options.keep_both ? 2 : 1;
        for (int i = 0; i < n_sides; ++i)
            if (const int open_ends =
                    keep_side(blocks, sides[i], tolerance, options.cap, bar, i * (1.0 / n_sides), 1.0 / n_sides, kept))
                notes << "gr-tarn: the cut is open in " << open_ends << " places on the " << sides[i].name
                      << " side, where the mesh is; the cap leaves them out\n";
    }
    if (kept.empty())
    {
        error = fl_name(options.input) + ": nothing lies on the side of the plane that is kept";
        return 0;
    }
    flProgress bar(progress, "writing");
    return ms_write_tarn(options.output, kept, error, bar.reporter());
}
