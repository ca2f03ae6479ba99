#include "grDiagSplitter.h"

#include "grSplit.h"
#include "grSplitBlock.h"

#include "utTypeID.h"

#include <ostream>

grDiagSplitter::~grDiagSplitter() = default;

void grDiagSplitter::block_zones(int block, int lower_zone, int upper_zone)
{
    if (!the_stream || !is_interesting(block))
        return;
    unsigned short red, green, blue;
    grSplit::index_to_rgb(block, red, green, blue);
    *the_stream << "interesting " << block << "\nInteresting rgb: " << red << ' ' << green << ' ' << blue
                << "\nlower_zone " << lower_zone << "\nupper_zone " << upper_zone << '\n';
}

void grDiagSplitter::zone_counts(int zone, const std::vector<int>& blocks, const grPixelCountcoDynArr& upper,
                                 const grPixelCountcoDynArr& lower, const grPixelCountcoDynArr& alone)
{
    if (!the_stream)
        return;
    bool headed = false;
    for (const int block : blocks)
    {
        if (!is_interesting(block))
            continue;
        if (!headed)
            *the_stream << "Pixel counts for zone " << zone << "\nblock_index upper lower alone\n";
        headed = true;
        *the_stream << block << ' ' << upper[block] << ' ' << lower[block] << ' ' << alone[block] << '\n';
    }
}

void grDiagSplitter::point_zoom_counts(int block, int upper, int lower, int alone)
{
    if (the_stream && is_interesting(block))
        *the_stream << "Point zoom counts on block " << block << ": " << upper << ' ' << lower << ' ' << alone << '\n';
}

void grDiagSplitter::block_zoom_counts(int block, int upper, int lower, int alone, int width, int height)
{
    if (the_stream && is_interesting(block))
        *the_stream << "Block zoom " << block << ": " << upper << ' ' << lower << ' ' << alone << ", " << width << " x "
                    << height << '\n';
}

void grDiagSplitter::image(const std::string&, const dgImage&) {}

void grDiagSplitter::classified(const grSplitBlock& block, grBlockVisClass vis, grBlockDiagClass diag)
{
    if (the_stream && is_interesting(block.block_index()))
        *the_stream << block.block_index() << ' ' << vis << ' ' << diag << '\n' << block;
}

UT_DEFINE_TYPE(grDiagSplitter);
