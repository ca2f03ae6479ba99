#include "vwFrameTimes.h"

#include "apNumber.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <numeric>

namespace
{
// The smallest value that at least share of the sorted values do not exceed.
double quantile(const std::vector<double>& sorted, double share)
{
    const double rank = std::ceil(share * static_cast<double>(sorted.size()));
    return sorted[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}
}

std::string vw_frame_text(const vwFrameSummary& summary)
{
    return ap_number_text(summary.median * 1000, 1) + " ms a frame, 95 % below " +
           ap_number_text(summary.slow * 1000, 1) + " ms, " + ap_number_text(1 / std::max(summary.mean, 1e-6), 0) +
           " frames/s";
}

vwFrameSummary vwFrameTimes::summary(int n) const
{
    const std::size_t used = n > 0 ? std::min<std::size_t>(n, the_frames.size()) : the_frames.size();
    vwFrameSummary summary;
    if (!used)
        return summary;
    std::vector<double> seconds;
    seconds.reserve(used);
    std::transform(the_frames.end() - static_cast<std::ptrdiff_t>(used), the_frames.end(), std::back_inserter(seconds),
                   [](const vwFrame& frame) { return frame.seconds; });
    std::sort(seconds.begin(), seconds.end());
    summary.count = static_cast<int>(used);
    summary.mean = std::accumulate(seconds.begin(), seconds.end(), 0.0) / static_cast<double>(used);
    summary.median = quantile(seconds, 0.5);
    summary.slow = quantile(seconds, 0.95);
    summary.longest = seconds.back();
    return summary;
}
