#include "dgGLIndexRanges.h"

#include <cstdint>

void dgGLIndexRanges::clear()
{
    counts.clear();
    offsets.clear();
    parts.clear();
    origin = 0;
    curved = 0;
}

void dgGLIndexRanges::add(unsigned first_index, unsigned count)
{
    const auto* offset = reinterpret_cast<const char*>(std::uintptr_t(first_index) * sizeof(std::uint32_t));
    const int same_part = !parts.empty() && parts.back().origin == origin && parts.back().curved == curved;
    if (same_part &&
        static_cast<const char*>(offsets.back()) + static_cast<std::size_t>(counts.back()) * sizeof(std::uint32_t) ==
            offset)
    {
        counts.back() += static_cast<int>(count);
        return;
    }
    counts.push_back(static_cast<int>(count));
    offsets.push_back(offset);
    if (same_part)
        parts.back().end = counts.size();
    else
        parts.push_back({origin, curved, counts.size()});
}
