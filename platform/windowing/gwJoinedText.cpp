#include "gwJoinedText.h"

#include <algorithm>

gwJoinedText::gwJoinedText(std::string_view original)
{
    the_text.reserve(original.size());
    for (int line = 1;; ++line)
    {
        the_lines.push_back({the_text.size(), {line, 1}});
        const std::size_t end = original.find('\n');
        std::string_view content = original.substr(0, end);
        if (content.ends_with('\r'))
            content.remove_suffix(1);
        if (content.ends_with('\\'))
            the_text.append(content, 0, content.size() - 1);
        else
            the_text.append(original, 0, end == std::string_view::npos ? end : end + 1);
        if (end == std::string_view::npos)
            return;
        original.remove_prefix(end + 1);
    }
}

gwTextPlace gwJoinedText::place(std::size_t position) const
{
    position = std::min(position, the_text.size());
    // Of lines that start at the same position the last one holds the character: the others have nothing but a
    // backslash.
    const auto after = std::upper_bound(the_lines.begin(), the_lines.end(), position,
                                        [](std::size_t p, const Line& line) { return p < line.start; });
    gwTextPlace place = std::prev(after)->place;
    place.column += static_cast<int>(position - std::prev(after)->start);
    return place;
}
