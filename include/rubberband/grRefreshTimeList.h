#pragma once

#include "coDList.h"
#include "grExport.h"
#include "grRefreshTime.h"

/// The latest measurements of one renderer, newest first.
class GR_EXPORT grRefreshTimeList
{
public:
    /// Keeps the latest max measurements.
    grRefreshTimeList(dgRenderer* renderer, int max) : the_renderer(renderer), the_maximum(max) {}

    /// Both in seconds: what the refresh took, and the clock when it was recorded.
    void add_timing(double refresh_time, double time_of_refresh);

    /// Average of the refresh times, and their number; 0 when there are none.
    double average_frame_time(int& count) const;

    /// When the newest was recorded; 0 when there is none.
    double latest_time() const;

    dgRenderer* renderer() const { return the_renderer; }

protected:
    grRefreshTimeList(const grRefreshTimeList&) = delete;
    grRefreshTimeList& operator=(const grRefreshTimeList&) = delete;

private:
    dgRenderer* the_renderer;
    int the_maximum;
    coDList<grRefreshTime> the_times;
};
