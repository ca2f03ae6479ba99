#include "msEnding.h"

#include "flPath.h"

#include <algorithm>
#include <cctype>

std::string ms_ending(const std::string& file)
{
    std::string found = fl_name_of(fl_path(file).extension());
    std::transform(found.begin(), found.end(), found.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return found.empty() ? found : found.substr(1);
}
