#pragma once

#include "msBlocks.h"

#include <iosfwd>
#include <string>

/// Writes the blocks that have triangles, in a format by its exporter's name. Answers 1, or 0 with error set.
int ms_export(const ms_blocks& blocks, const std::string& format, std::ostream& os, std::string& error);
