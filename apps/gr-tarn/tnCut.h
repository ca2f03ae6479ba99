#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/// What the command "cut" is asked for.
struct tnCutOptions
{
    std::string input;
    std::string output;
    std::vector<double> plane; ///< nx, ny, nz, d: the points with nx x + ny y + nz z = d
    bool keep_both = false;
    bool cap = false;
};

/// Cuts the blocks of a tarn file and writes those that stay: of the side that the normal points to, and with keep_both
/// those of the other side behind them. With cap, a block that closes the cut follows those of each side. Notes go to
/// notes, bars to progress unless it is null. Answers 1, or 0 with error set.
int tn_cut(const tnCutOptions& options, std::ostream& notes, std::ostream* progress, std::string& error);
