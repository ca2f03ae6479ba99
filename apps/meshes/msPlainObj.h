#pragma once

#include "msImport.h"

#include <string>
#include <vector>

/// 1 when an OBJ file holds nothing but triangles, with numbers and positive indices that are written as they should
/// be, and lines that say nothing of their shape: files that a quick reader cannot misunderstand.
int ms_is_plain_obj(const std::vector<char>& text);

/// Reads such a file as ms_import does, a mesh for each group, object or material.
int ms_import_plain_obj(std::vector<char>& text, const std::function<void(const msMesh&)>& receive, std::string& error,
                        const ms_progress& progress);
