#pragma once

#include "apExport.h"
#include "apPathName.h"

#include <iosfwd>
#include <string_view>
#include <vector>

/// 1 when path names a plain file (links followed).
AP_EXPORT int ap_file_exists(const apPathName& path);

/// Opens a plain file for reading, bytes as they are. Answers 1, or 0 with stream left closed: a folder is refused.
AP_EXPORT int ap_open_for_reading(const apPathName& path, std::ifstream& stream);

/// The entries of a list of paths in order, empty ones left out. Entries are parted by ";" and, off Windows, ":".
AP_EXPORT std::vector<apPathName> ap_split_path_list(std::string_view list);
