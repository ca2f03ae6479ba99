#include "tnNumbers.h"

#include "apNumber.h"

#include <algorithm>
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

giVector3 tn_direction(const std::vector<double>& xyz, double& size)
{
    // The squares of very large and very small numbers have no doubles.
    size = std::max({std::abs(xyz[0]), std::abs(xyz[1]), std::abs(xyz[2])});
    return size > 0 ? giVector3(xyz[0] / size, xyz[1] / size, xyz[2] / size).unit() : giVector3();
}
