#pragma once

#include <iosfwd>
#include <string>

class dgStructure;
struct vwOptions;

/// Writes a structure as a tree of text, calls indented below the elements that make them: a line for each element with
/// its position, class, type code and what it holds. Each structure is written where it is first called; further calls,
/// those of a structure by itself too, name its number. Ends with a table of counts.
void vw_write_structure_tree(std::ostream& os, const dgStructure& root);

/// Reads the files of the options and writes what they ask for: the tree to os, XML to a file. Answers 1, or 0 with
/// error set.
int vw_dump_structure(const vwOptions& options, std::ostream& os, std::string& error);
