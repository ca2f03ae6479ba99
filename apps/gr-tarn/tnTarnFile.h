#pragma once

#include "giTriBlock.h"

#include <memory>
#include <string>
#include <vector>

class tnProgress;

using tn_blocks = std::vector<std::unique_ptr<giTriBlock>>;

/// Reads all blocks of a tarn file. Answers 1, or 0 with error set to a text that names the file.
int tn_read(const std::string& file, tn_blocks& blocks, std::string& error, tnProgress& progress);

/// Writes the blocks as a tarn file. A file of that name is replaced once the new one is complete. Answers 1, or 0 with
/// error set to a text that names the file.
int tn_write(const std::string& file, const tn_blocks& blocks, std::string& error, tnProgress& progress);
