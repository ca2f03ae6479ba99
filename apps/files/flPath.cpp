#include "flPath.h"

std::string fl_name_of(const std::filesystem::path& path)
{
    const std::u8string name = path.u8string();
    return std::string(name.begin(), name.end());
}
