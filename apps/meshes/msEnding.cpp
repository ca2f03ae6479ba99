#include "msEnding.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

std::string ms_ending(const std::string& file)
{
    std::string found = std::filesystem::path(file).extension().string();
    std::transform(found.begin(), found.end(), found.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return found.empty() ? found : found.substr(1);
}
