#include "apFile.h"

#include "apNativePath.h"

#include <fstream>

namespace
{
#if defined(_WIN32)
constexpr std::string_view list_separators = ";";
#else
constexpr std::string_view list_separators = ";:";
#endif
}

int ap_file_exists(const apPathName& path)
{
    std::error_code error;
    return path.valid() && std::filesystem::is_regular_file(ap_opened_path(path), error);
}

int ap_open_for_reading(const apPathName& path, std::ifstream& stream)
{
    if (!ap_file_exists(path))
        return 0;
    std::ifstream file(ap_opened_path(path), std::ios::binary);
    if (!file)
        return 0;
    stream = std::move(file);
    return 1;
}

std::vector<apPathName> ap_split_path_list(std::string_view list)
{
    std::vector<apPathName> entries;
    while (!list.empty())
    {
        const std::size_t end = list.find_first_of(list_separators);
        const std::string_view entry = list.substr(0, end);
        if (!entry.empty())
            entries.emplace_back(entry);
        list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    }
    return entries;
}
