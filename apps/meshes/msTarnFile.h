#pragma once

#include "msBlocks.h"

#include <string>

/// Reads all blocks of a tarn file and appends them. Answers 1, or 0 with blocks as it was and error set to a text that
/// names the file, and line and reason where it is damaged.
int ms_read_tarn(const std::string& file, ms_blocks& blocks, std::string& error,
                 const ms_progress& progress = ms_progress());

/// The same, block by block; those that take got before a damage stay there.
int ms_read_tarn(const std::string& file, const ms_block_taker& take, std::string& error, const ms_progress& progress);

/// Writes the blocks as a tarn file, as flOutputFile does. Answers 1, or 0 with error set to a text that names the
/// file.
int ms_write_tarn(const std::string& file, const ms_blocks& blocks, std::string& error,
                  const ms_progress& progress = ms_progress());
