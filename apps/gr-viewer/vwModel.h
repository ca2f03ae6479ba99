#pragma once

#include "vwParts.h"

#include "dgClientStructure.h"
#include "dgRef.h"
#include "giAngle.h"
#include "giXform3.h"
#include "gi_Axis.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

class giTriBlock;

/// The triangle meshes that are shown, as one display structure with a colour for each block.
class vwModel
{
public:
    /// Edges of meshes without normals that turn by more than this stay sharp.
    static giAngle crease();

    /// up is the axis of the files that shall point where z does.
    explicit vwModel(gi_Axis up = gi_Z_AXIS);

    /// Adds the files in order. Answers 1, or 0 with error set by the first that fails. Flaws are told on notes.
    int add_files(const std::vector<std::string>& files, std::ostream& notes, std::string& error);

    /// Adds the blocks of a file: of the mesh format (STL, OBJ, PLY...) that its ending names, else tarn. Answers 1, or
    /// 0 with error set to a text that names the file, and the model as it was. Coordinates that drawing cannot hold
    /// are such an error.
    int add_file(const std::string& file, std::string& error);

    /// Names the file that the blocks added from now on come from.
    void start_file(const std::string& file);
    /// Adds a block. Answers 1, or 0 with error set when drawing cannot hold its coordinates, and the model as it was.
    int add(std::unique_ptr<giTriBlock> block, std::string& error);

    /// Tells what will not look as it is.
    void note_flaws(std::ostream& notes) const;

    /// What views show.
    dgStructure& root() const { return *the_root; }
    /// From the coordinates of the files to those of the root.
    const giXform3& placing() const { return the_placing; }
    /// The blocks in order, each named by its file and, if that has several, its number in it.
    const std::vector<vwPart>& parts() const { return the_parts; }
    /// Shows the files of another model, which has the same axis up and loses them, in place of its own.
    void take(vwModel& other);
    int n_blocks() const { return the_n_blocks; }
    long long n_triangles() const { return the_n_triangles; }
    /// The names of the files without their folders, with commas.
    std::string names() const { return names(the_files); }
    static std::string names(const std::vector<std::string>& files);
    /// 1 when the model lies so far from the origin, for its size, that numbers are too coarse for its shape.
    int torn() const;

private:
    void add(std::unique_ptr<giTriBlock> block);

    dgRef<dgClientStructure> the_root, the_blocks;
    dgElementPath the_call; // of the blocks; empty where they are the root
    giXform3 the_placing;
    std::vector<vwPart> the_parts;
    int the_file_block = 0; // number of the last block in its file
    std::vector<std::string> the_files;
    int the_n_blocks = 0;
    long long the_n_triangles = 0;
};
