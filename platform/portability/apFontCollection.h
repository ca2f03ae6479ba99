#pragma once

#include "apExport.h"

#include <cstddef>
#include <vector>

/// Index of the face of a TrueType collection whose table directory starts at offset; -1 when the bytes are no
/// collection or have no face there. Form of the file: OpenType, "Font Collections".
AP_EXPORT int ap_collection_face_index(const std::vector<unsigned char>& bytes, std::size_t offset);
