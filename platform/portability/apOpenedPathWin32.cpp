#include "apNativePath.h"

namespace
{
constexpr std::size_t longest_plain = 247; // characters that also folders may have
constexpr wchar_t prefix[] = L"\\\\?\\", network_prefix[] = L"\\\\?\\UNC\\";
}

// Longer paths are taken behind a prefix, and then as they are: without dots, and with no other slashes.
std::filesystem::path ap_opened_path(const apPathName& path)
{
    std::filesystem::path native = ap_native_path(path);
    if (native.native().size() <= longest_plain || native.native().starts_with(prefix))
        return native;
    std::error_code error;
    native = std::filesystem::absolute(native, error).lexically_normal().make_preferred();
    const std::wstring& text = native.native();
    return text.starts_with(L"\\\\") ? network_prefix + text.substr(2) : prefix + text;
}
