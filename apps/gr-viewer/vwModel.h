#pragma once

#include "dgClientStructure.h"
#include "dgRef.h"

#include <iosfwd>
#include <string>
#include <vector>

/// The triangle meshes that are shown, as one display structure with a colour for each block.
class vwModel
{
public:
    vwModel();

    /// Adds the files in order. Answers 1, or 0 with error set by the first that fails. What will not look as it is, is
    /// told on notes.
    int add_files(const std::vector<std::string>& files, std::ostream& notes, std::string& error);

    /// Adds the blocks of a file: of the mesh format (STL, OBJ, PLY...) that its ending names, else tarn. Answers 1, or
    /// 0 with error set to a text that names the file, and the model as it was. Coordinates that drawing cannot hold
    /// are such an error.
    int add_file(const std::string& file, std::string& error);

    dgStructure& root() const { return *the_root; }
    int n_blocks() const { return the_n_blocks; }
    long long n_triangles() const { return the_n_triangles; }
    /// The names of the files without their folders, with commas.
    std::string names() const;
    /// 1 when the model lies so far from the origin, for its size, that numbers are too coarse for its shape.
    int torn() const;

private:
    dgRef<dgClientStructure> the_root;
    std::vector<std::string> the_names;
    int the_n_blocks = 0;
    long long the_n_triangles = 0;
};
