#pragma once

#include "apPathName.h"

#include <filesystem>

/// The same path for the standard library.
inline std::filesystem::path ap_native_path(const apPathName& path)
{
    const std::string& text = path.utf8();
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}
