#include "vwFontFolders.h"

#include "apPathName.h"

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <shlobj.h>

namespace
{
std::string folder(int which, const char* inside)
{
    wchar_t path[MAX_PATH];
    return SHGetFolderPathW(nullptr, which, nullptr, SHGFP_TYPE_CURRENT, path) == S_OK
               ? (apPathName(path) / apPathName(inside)).utf8()
               : std::string();
}
}

// Windows has no fonts of this kind of its own; these are the folders of all users' fonts and of the user's.
std::string vw_system_font_path()
{
    return folder(CSIDL_FONTS, "") + ';' + folder(CSIDL_LOCAL_APPDATA, "Microsoft/Windows/Fonts");
}

std::string vw_system_metrics_path()
{
    return vw_system_font_path();
}
