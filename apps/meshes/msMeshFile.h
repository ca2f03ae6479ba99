#pragma once

#include "msBlocks.h"

#include <string>

class giAngle;

/// 1 when files of this name's ending can be read as meshes.
int ms_readable(const std::string& file);
/// 1 when the file is there and its ending is one of these; else 0 with error set to a text that names the file.
int ms_check_readable(const std::string& file, std::string& error);
/// 1 when they can be written; else 0 with error set to a text that names the file.
int ms_check_writable(const std::string& file, std::string& error);

/// The endings of such files, as a message lists them: "stl, obj, ply".
std::string ms_readable_endings();
std::string ms_writable_endings();

/// Reads the meshes of a file (the ending tells the format), placed as the file's scene places them, and appends a
/// block for each. Positions have the precision of floats.
///
/// Normals and texture coordinates of the nodes are kept. Normals are computed where there are none, and for STL, which
/// has them for its triangles only, as gr_smooth_tblock does with the crease angle.
///
/// Nothing in the file is trusted: it is read in a process of its own, with bounds on memory and time
/// that grow with the file's size. Faces have at most 10,000 corners, and nodes are at finite places.
///
/// Answers 1, or 0 with error set to a text that names the file, and blocks as it was.
int ms_read(const std::string& file, const giAngle& crease, ms_blocks& blocks, std::string& error,
            const ms_progress& progress = ms_progress());

/// Writes the blocks in the format that the ending of the name tells (STL and PLY in binary form), as flOutputFile
/// does. Normals and texture coordinates are written where the format has them; curvatures are not. Answers 1, or 0
/// with error set to a text that names the file.
int ms_write(const std::string& file, const ms_blocks& blocks, std::string& error);
