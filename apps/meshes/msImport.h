#pragma once

#include "msBlocks.h"

#include <functional>
#include <string>
#include <vector>

/// A mesh as a file has it; what it points to is good while it is looked at.
struct msMesh
{
    int number; ///< in its file, from 1
    int n_nodes;
    int n_faces;            ///< triangles, and points and lines that are dropped
    const float* positions; ///< three for each node, all of them finite
    const float* normals;   ///< three for each node, of any length; null: none
    const float* texture;   ///< texture coordinates, three for each node, the last unused; null: none
    std::function<std::vector<int>()> corners; ///< gathers node numbers as the file has them, three for each triangle
};

/// What is wrong when a file takes more memory than is allowed.
inline const char* const ms_no_memory = "reading it takes more memory than a file of its size should";

/// Reads the meshes of a file, placed as its scene places them, in this process, which an importer may take along in a
/// crash. kind is the ending of the name in small letters. Calls receive with each mesh. Answers 1,
/// or 0 with error set to what is wrong, without the file's name.
int ms_import(const std::string& file, const std::string& kind, const std::function<void(const msMesh&)>& receive,
              std::string& error, const ms_progress& progress);
