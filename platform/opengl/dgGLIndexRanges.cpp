#include "dgGLIndexRanges.h"

#include <cstddef>
#include <cstdint>

void dgGLIndexRanges::clear()
{
    counts.clear();
    offsets.clear();
}

void dgGLIndexRanges::add(unsigned first_index, unsigned count)
{
    const auto* offset = reinterpret_cast<const char*>(std::uintptr_t(first_index) * sizeof(std::uint32_t));
    if (!counts.empty() &&
        static_cast<const char*>(offsets.back()) + static_cast<std::size_t>(counts.back()) * sizeof(std::uint32_t) ==
            offset)
    {
        counts.back() += static_cast<int>(count);
        return;
    }
    counts.push_back(static_cast<int>(count));
    offsets.push_back(offset);
}
