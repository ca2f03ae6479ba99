#include "grSplitUtils.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr double most_zones = 1e6;
}

void grSplitUtils::init(grPixelCountcoDynArr& counts, int n)
{
    counts.clear();
    counts.resize(n);
}

void grSplitUtils::find_zone_layout(double n, double aspect, int& first, int& second)
{
    n = std::isnan(n) ? 0 : std::clamp(n, -most_zones, most_zones);
    second = 1;
    if (n >= 2)
    {
        double least = std::numeric_limits<double>::infinity();
        for (int k = 1; n / k >= 2; ++k)
        {
            const double score = std::abs(static_cast<double>(k) * k / n - aspect);
            if (!(score < least))
                continue;
            least = score;
            second = k;
        }
    }
    first = static_cast<int>(n / second + 0.5);
}
