#include "utString.h"

#include "apString.h"

#include <ostream>

int utString::equal_case_blind(const utString& other) const
{
    return ap_equal_case_blind(view(), other.view());
}

int utString::equal_case_blind(const char* other) const
{
    return ap_equal_case_blind(view(), other);
}

int utString::equal_case_blind(const utString& other, int count) const
{
    const std::size_t n = static_cast<std::size_t>(count);
    return ap_equal_case_blind(view().substr(0, n), other.view().substr(0, n));
}

std::ostream& operator<<(std::ostream& os, const utString& text)
{
    return os << text.view();
}
