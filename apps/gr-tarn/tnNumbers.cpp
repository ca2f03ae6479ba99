#include "tnNumbers.h"

#include "apNumber.h"

#include <cmath>

int tn_read_numbers(const std::string& text, std::size_t count, std::vector<double>& numbers)
{
    numbers.clear();
    const char* position = text.data();
    const char* const end = position + text.size();
    for (;;)
    {
        double number = 0;
        position = ap_scan_number(position, end, number);
        if (!position || !std::isfinite(number))
            return 0;
        numbers.push_back(number);
        if (position == end)
            return numbers.size() == count;
        if (*position++ != ',')
            return 0;
    }
}
