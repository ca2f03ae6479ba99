#include "apNativePath.h"

std::filesystem::path ap_opened_path(const apPathName& path)
{
    return ap_native_path(path);
}
