#include "vwModel.h"

#include "flMessages.h"
#include "msMeshFile.h"
#include "msTarnFile.h"

#include "dgStructureCall.h"
#include "dgSurfaceColour.h"
#include "dgTransform.h"
#include "dgTriangleBlock.h"
#include "giAngleDegrees.h"
#include "giTriBlock.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <numbers>
#include <ostream>
#include <string>
#include <utility>

namespace
{
// One after the other for the blocks: light enough for shading to show, unlike the background and each other.
const gsColour palette[] = {gsColour(0.76, 0.80, 0.85), gsColour(0.88, 0.68, 0.34), gsColour(0.45, 0.68, 0.76),
                            gsColour(0.80, 0.50, 0.42), gsColour(0.60, 0.73, 0.50), gsColour(0.67, 0.58, 0.78),
                            gsColour(0.90, 0.83, 0.62), gsColour(0.52, 0.57, 0.66)};

constexpr double crease_degrees = 30;

// Drawing is in single precision, and squares coordinates.
constexpr double largest_coordinate = 1e15;
// In sizes of the model.
constexpr double largest_distance = 1e9;

bool can_be_drawn(const giTriBlock& block, const std::string& file, std::string& error)
{
    const giBox3 box = block.box();
    for (int axis = 0; axis < 3 && !box.empty(); ++axis)
        if (box.low()[axis] < -largest_coordinate || box.high()[axis] > largest_coordinate)
        {
            error = fl_name(file) + ": it cannot be shown: there are coordinates beyond 1e15";
            return false;
        }
    return true;
}

std::string name_without_folder(const std::string& file)
{
    return file.substr(file.find_last_of("/\\") + 1);
}
}

giAngle vwModel::crease()
{
    return giAngleDegrees(crease_degrees);
}

vwModel::vwModel(gi_Axis up) : the_root(new dgClientStructure()), the_blocks(the_root)
{
    if (up == gi_Z_AXIS)
        return;
    const double quarter_turn = std::numbers::pi / 2;
    the_placing = up == gi_Y_AXIS ? giXform3::rotation(giAngle(quarter_turn), gi_X_AXIS, giPoint3())
                                  : giXform3::rotation(giAngle(-quarter_turn), gi_Y_AXIS, giPoint3());
    the_blocks = dgRef<dgClientStructure>(new dgClientStructure());
    the_root->add(new dgTransform(the_placing));
    the_call.emplace_back(new dgStructureCall(the_blocks.get()));
    the_root->add(the_call.back().get());
}

void vwModel::take(vwModel& other)
{
    the_blocks->clear();
    for (int i = 0; i < other.the_blocks->nelements(); ++i)
        the_blocks->add(other.the_blocks->element(i));
    other.the_blocks->clear();
    the_parts = std::exchange(other.the_parts, {});
    for (vwPart& part : the_parts)
        std::copy(the_call.begin(), the_call.end(), part.path.begin());
    the_files = std::exchange(other.the_files, {});
    the_n_blocks = std::exchange(other.the_n_blocks, 0);
    the_n_triangles = std::exchange(other.the_n_triangles, 0);
}

int vwModel::add_files(const std::vector<std::string>& files, std::ostream& notes, std::string& error)
{
    for (const std::string& file : files)
        if (!add_file(file, error))
            return 0;
    note_flaws(notes);
    return 1;
}

void vwModel::note_flaws(std::ostream& notes) const
{
    if (torn())
        notes << "gr-viewer: " << fl_printable(names()) << ": this lies more than " << largest_distance
              << " times its size from the origin, where numbers are too coarse for its shape\n";
}

int vwModel::torn() const
{
    const giBox3 box = the_root->bounding_box();
    return !box.empty() && box.middle().vector().length() > largest_distance * box.diagonal().length();
}

int vwModel::add_file(const std::string& file, std::string& error)
{
    ms_blocks blocks;
    if (!(ms_readable(file) ? ms_read(file, crease(), blocks, error) : ms_read_tarn(file, blocks, error)))
        return 0;
    for (const auto& block : blocks)
        if (!can_be_drawn(*block, file, error))
            return 0;
    start_file(file);
    for (std::unique_ptr<giTriBlock>& block : blocks)
        add(std::move(block));
    return 1;
}

void vwModel::start_file(const std::string& file)
{
    the_files.push_back(file);
    the_file_block = 0;
}

int vwModel::add(std::unique_ptr<giTriBlock> block, std::string& error)
{
    if (!can_be_drawn(*block, the_files.back(), error))
        return 0;
    add(std::move(block));
    return 1;
}

void vwModel::add(std::unique_ptr<giTriBlock> block)
{
    the_n_triangles += block->triangle_count();
    the_blocks->add(new dgSurfaceColour(palette[static_cast<std::size_t>(the_n_blocks) % std::size(palette)]));
    vwPart part{name_without_folder(the_files.empty() ? "" : the_files.back()), the_call};
    if (++the_file_block > 1)
        part.name += " " + std::to_string(the_file_block);
    part.path.emplace_back(new dgTriangleBlock(block.release(), 1));
    the_blocks->add(part.path.back().get());
    the_parts.push_back(std::move(part));
    ++the_n_blocks;
}

std::string vwModel::names(const std::vector<std::string>& files)
{
    std::string names;
    for (const std::string& file : files)
        names += (names.empty() ? "" : ", ") + name_without_folder(file);
    return names;
}
