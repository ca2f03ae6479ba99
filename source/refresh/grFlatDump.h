#pragma once

#include <string>

class dgStructure;

/// What file names of flattened structures start with on this system.
std::string gr_default_flat_dump_prefix();

/// Writes a flattened structure to the file prefix + a running number + ".xml" and says so on standard output, or why
/// it could not be written on standard error.
void gr_dump_flat_structure(const dgStructure& structure, const std::string& prefix);
