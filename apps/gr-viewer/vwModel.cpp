#include "vwModel.h"

#include "msMeshFile.h"

#include "gr_read_tarn_tblock.h"

#include "apFile.h"
#include "dgSurfaceColour.h"
#include "dgTriangleBlock.h"
#include "giAngleDegrees.h"
#include "giTriBlock.h"

#include <fstream>
#include <iterator>
#include <memory>

namespace
{
// One after the other for the blocks: light enough for shading to show, unlike the background and each other.
const gsColour palette[] = {gsColour(0.76, 0.80, 0.85), gsColour(0.88, 0.68, 0.34), gsColour(0.45, 0.68, 0.76),
                            gsColour(0.80, 0.50, 0.42), gsColour(0.60, 0.73, 0.50), gsColour(0.67, 0.58, 0.78),
                            gsColour(0.90, 0.83, 0.62), gsColour(0.52, 0.57, 0.66)};

// Edges of imported meshes that turn by more than this stay sharp.
constexpr double crease_degrees = 30;

using Blocks = std::vector<std::unique_ptr<giTriBlock>>;

int read_tarn(const std::string& file, Blocks& blocks, std::string& error)
{
    std::ifstream stream;
    if (!ap_open_for_reading(file, stream))
    {
        error = file + ": the file is missing or cannot be read";
        return 0;
    }
    int count = 0;
    giTriBlockcoDList read;
    gr_read_tarn_tblock(stream, count, &read);
    for (giTriBlock* block : read)
        blocks.emplace_back(block);
    if (!blocks.empty())
        return 1;
    error = file + (stream.fail() ? ": this is no tarn file, or it is damaged" : ": the tarn file holds no blocks");
    return 0;
}

std::string name_without_folder(const std::string& file)
{
    return file.substr(file.find_last_of("/\\") + 1);
}
}

vwModel::vwModel() : the_root(new dgClientStructure()) {}

int vwModel::add_file(const std::string& file, std::string& error)
{
    Blocks blocks;
    if (!(ms_readable(file) ? ms_read(file, giAngleDegrees(crease_degrees), blocks, error)
                            : read_tarn(file, blocks, error)))
        return 0;
    for (std::unique_ptr<giTriBlock>& block : blocks)
    {
        the_n_triangles += block->triangle_count();
        the_root->add(new dgSurfaceColour(palette[static_cast<std::size_t>(the_n_blocks) % std::size(palette)]));
        the_root->add(new dgTriangleBlock(block.release(), 1));
        ++the_n_blocks;
    }
    the_names.push_back(name_without_folder(file));
    return 1;
}

std::string vwModel::names() const
{
    std::string names;
    for (const std::string& name : the_names)
        names += (names.empty() ? "" : ", ") + name;
    return names;
}
