#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// What the command "visibility" is asked for.
struct tnVisibilityOptions
{
    std::string input;
    std::vector<double> direction; ///< x, y, z: where the upper side is
    std::string images;            ///< folder for the identifier images, empty: none
    std::string classes;           ///< tarn file for one block of each class, empty: none
    int size = 1024;               ///< longer side of the overview images in pixels
};

/// Sorts the blocks of a tarn file by the side that they are seen from and lists them on out. Bars go to progress
/// unless it is null. Answers 1, or 0 with error set.
int tn_visibility(const tnVisibilityOptions& options, std::ostream& out, std::ostream* progress, std::string& error);
