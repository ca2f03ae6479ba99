#pragma once

#include "msBlocks.h"

#include <string>

class giAngle;

/// What is wrong when a file takes more memory than is allowed.
inline const char* const ms_no_memory = "reading it takes more memory than a file of its size should";

/// Reads a mesh file as ms_read does, in this process, which an importer may take along in a crash. kind is the ending
/// of the name in small letters. Answers 1, or 0 with error set to what is wrong, without the file's name.
int ms_import(const std::string& file, const std::string& kind, const giAngle& crease, ms_blocks& blocks,
              std::string& error, const ms_progress& progress);
