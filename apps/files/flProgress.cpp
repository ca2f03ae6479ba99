#include "flProgress.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace
{
const int bar_width = 40;
}

void flProgress::wipe()
{
    if (the_stream && std::exchange(the_percent, -1) >= 0)
        *the_stream << '\r' << std::string(the_title.size() + bar_width + 8, ' ') << '\r' << std::flush;
}

void flProgress::show(double share)
{
    const int percent = static_cast<int>(100 * std::clamp(share, 0.0, 1.0));
    if (!the_stream || percent == the_percent)
        return;
    the_percent = percent;
    const auto done = static_cast<std::size_t>(percent * bar_width / 100);
    *the_stream << '\r' << the_title << " [" << std::string(done, '#') << std::string(bar_width - done, ' ') << "] "
                << percent << '%' << std::flush;
}
