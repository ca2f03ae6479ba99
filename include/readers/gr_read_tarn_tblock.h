#pragma once

#include "giTriBlockcoDList.h"
#include "grExport.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

class dgStructure;
class giTriBlock;

/// Reads the triangle blocks of a "tarn" text file.
///
/// The file, in lines and in numbers separated by blanks or line ends, with "." as decimal point in every locale:
/// - any lines, up to and including the first that starts with "*";
/// - the number of blocks; the rest of its line is skipped;
/// - an index, five blocks to a line, which is skipped;
/// - for each block three lines that are skipped; five ints (vector mode, texture flag, node count, triangle count, one
///   that is not used) and the rest of their line; eight lines that are skipped; for each node its position, three
///   vector values and two texture coordinates; for each triangle three node numbers counted from 1; the rest of the
///   last line.
///
/// In vector mode 1 the vector values are the node's normal; in any other mode the first two are its curvature pair,
/// and a first value equal to the lowest finite double becomes the largest finite double. The texture coordinates are
/// kept when the flag is not 0. Lines may have any length and end in "\n" or "\r\n".
///
/// count becomes the number of blocks that the file claims to hold, 0 when that is not reached. With a list, every
/// block read is appended to it; without, only the first block is kept. The caller owns the blocks.
///
/// Returns the first block read; null when the count is below 1, and when the file is damaged: cut short, no finite
/// number where one is due, a node or triangle count below 0, or a triangle naming a node that its block does not have.
/// Then the stream's fail bit is set (not for a count below 1) and the list is as it was.
///
/// The stream is read in large pieces. After a success it stands behind the last block, or at its end when it cannot be
/// positioned. A stream of finite length never makes the reader use more memory than about four times that length.
GR_EXPORT giTriBlock* gr_read_tarn_tblock(std::istream& stream, int& count, giTriBlockcoDList* blocks);

/// The same; complaint becomes what is wrong with a damaged file, starting with the place ("line 7: ...", or "byte 7:
/// ..." in a stream that cannot be positioned) where there is one, and empty otherwise.
GR_EXPORT giTriBlock* gr_read_tarn_tblock(std::istream& stream, int& count, giTriBlockcoDList* blocks,
                                          std::string& complaint);

/// The same, block by block: take gets each one as soon as it is read, and those that it got stay when the file turns
/// out to be damaged further on. Returns the number of blocks, and 0 for a damaged file as above.
GR_EXPORT int gr_read_tarn_tblock(std::istream& stream, const std::function<void(std::unique_ptr<giTriBlock>)>& take,
                                  std::string& complaint);

/// Reads a file of the same format and adds a dgTriangleBlock, which owns its block, to the structure for each block in
/// the order of the file. Returns the number of blocks added; after a failure that is 0 and the structure is unchanged.
GR_EXPORT int gr_read_tarn_tblock(std::istream& stream, dgStructure* structure);
