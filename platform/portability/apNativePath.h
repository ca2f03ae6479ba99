#pragma once

#include "apExport.h"
#include "apPathName.h"

#include <filesystem>

/// The same path for the standard library.
inline std::filesystem::path ap_native_path(const apPathName& path)
{
    const std::string& text = path.utf8();
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

/// The same for a call that opens it, however long it is.
AP_EXPORT std::filesystem::path ap_opened_path(const apPathName& path);
