#include "utString.h"

#include <algorithm>
#include <ostream>

namespace
{
// Not tolower: its answer depends on the process's locale.
char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

int equal_texts(std::string_view a, std::string_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return lower(x) == lower(y); });
}
}

int utString::equal_case_blind(const utString& other) const
{
    return equal_texts(view(), other.view());
}

int utString::equal_case_blind(const char* other) const
{
    return equal_texts(view(), other);
}

int utString::equal_case_blind(const utString& other, int count) const
{
    const std::size_t n = static_cast<std::size_t>(count);
    return equal_texts(view().substr(0, n), other.view().substr(0, n));
}

std::ostream& operator<<(std::ostream& os, const utString& text)
{
    return os << text.view();
}
