#pragma once

#include <string>
#include <vector>

/// Where the outlines of a face are: a file, or its bytes.
struct apFaceData
{
    std::string file; ///< UTF-8; empty when the bytes are given
    int face_index = 0;
    std::vector<unsigned char> bytes;
};
