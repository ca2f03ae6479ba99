#include "gwResourceDB.h"

#include "apFile.h"
#include "gwResourceText.h"

#include <fstream>
#include <iterator>
#include <ostream>

int gwResourceDB::get_resource(const utString& key, utString& value) const
{
    const auto found = the_resources.find(key);
    if (found == the_resources.end())
        return 0;
    value = found->second;
    return 1;
}

gwResourceStatus gwResourceDB::load_text(const utString& text, int& line)
{
    const gwResourceText read(text.view());
    if (read.bad_line())
    {
        line = read.bad_line();
        return gwRESOURCE_BAD_LINE;
    }
    for (const gwResourceText::Setting& setting : read.settings())
        set_resource(setting.key, setting.value);
    return gwRESOURCE_OK;
}

gwResourceStatus gwResourceDB::load_file(const apPathName& path, int& line)
{
    std::ifstream file;
    if (!ap_open_for_reading(path, file))
        return gwRESOURCE_NO_FILE;
    const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (file.bad())
        return gwRESOURCE_NO_FILE;
    return load_text(text, line);
}

std::ostream& operator<<(std::ostream& os, gwResourceStatus status)
{
    switch (status)
    {
    case gwRESOURCE_OK: return os << "gwRESOURCE_OK";
    case gwRESOURCE_BAD_LINE: return os << "gwRESOURCE_BAD_LINE";
    case gwRESOURCE_NO_FILE: return os << "gwRESOURCE_NO_FILE";
    }
    return os << "Unknown value for gwResourceStatus";
}
