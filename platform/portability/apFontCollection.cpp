#include "apFontCollection.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace
{
constexpr std::size_t count_at = 8;    // behind the tag and the version
constexpr std::size_t offsets_at = 12; // one of 4 bytes for each face

std::uint32_t number(const std::vector<unsigned char>& bytes, std::size_t at)
{
    return static_cast<std::uint32_t>(bytes[at]) << 24 | static_cast<std::uint32_t>(bytes[at + 1]) << 16 |
           static_cast<std::uint32_t>(bytes[at + 2]) << 8 | bytes[at + 3];
}
}

int ap_collection_face_index(const std::vector<unsigned char>& bytes, std::size_t offset)
{
    constexpr unsigned char tag[] = {'t', 't', 'c', 'f'};
    if (bytes.size() < offsets_at || !std::equal(std::begin(tag), std::end(tag), bytes.begin()))
        return -1;
    const std::size_t count = std::min<std::size_t>(number(bytes, count_at), (bytes.size() - offsets_at) / 4);
    for (std::size_t i = 0; i < count; ++i)
        if (number(bytes, offsets_at + 4 * i) == offset)
            return static_cast<int>(i);
    return -1;
}
