#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

class giAngle;
class giTriBlock;

/// Told how much of a file is done, from 0 to 1.
using ms_progress = std::function<void(double)>;

/// 1 when files of this name's ending can be read, or written, as meshes.
int ms_readable(const std::string& file);
int ms_writable(const std::string& file);

/// Reads the meshes of a file (STL, OBJ, PLY and many more; the ending tells the format), placed as the file's scene
/// places them, and appends a block for each. Positions have the precision of floats.
///
/// Normals and texture coordinates of the nodes are kept. Normals are computed where there are none, and for STL, which
/// has them for its triangles only: they are averaged over triangles that meet at less than the crease angle.
///
/// Answers 1, or 0 with error set to a text that names the file, and blocks as it was.
int ms_read(const std::string& file, const giAngle& crease, std::vector<std::unique_ptr<giTriBlock>>& blocks,
            std::string& error, const ms_progress& progress = ms_progress());

/// Writes the blocks in the format that the ending of the name tells (STL and PLY in binary form). Normals and texture
/// coordinates are written where the format has them; curvatures are not. A file of that name is replaced once the new
/// one is complete. Answers 1, or 0 with error set to a text that names the file.
int ms_write(const std::string& file, const std::vector<std::unique_ptr<giTriBlock>>& blocks, std::string& error);
