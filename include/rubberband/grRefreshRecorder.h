#pragma once

#include "grExport.h"

#include <memory>
#include <vector>

class dgRenderer;
class grRefreshTimeList;

/// Remembers how long the latest 5 refreshes of each of a few renderers took. The renderer that has not been measured
/// for the longest time is forgotten first. Renderers are compared by pointer and never used.
class GR_EXPORT grRefreshRecorder
{
public:
    explicit grRefreshRecorder(int max_renderers);
    ~grRefreshRecorder();

    /// Records that a refresh took so many seconds and ended now.
    void add_frame_time(dgRenderer* renderer, double seconds);

    /// Set average to the mean of the renderer's times in seconds and count to their number. 0, with both 0, when there
    /// are none.
    int average_frame_time(dgRenderer* renderer, double& average) const;
    int average_frame_time(dgRenderer* renderer, double& average, int& count) const;

    /// Sets time to when the renderer's newest time was recorded. 0, with time 0, when the renderer is not known.
    int latest_time(dgRenderer* renderer, double& time) const;

    /// Forgets a renderer; 0 when it is not known.
    int clear_times(dgRenderer* renderer);

    /// The clock now, in seconds.
    double current_time() const;

protected:
    grRefreshRecorder(const grRefreshRecorder&) = delete;
    grRefreshRecorder& operator=(const grRefreshRecorder&) = delete;

private:
    const grRefreshTimeList* find(const dgRenderer* renderer) const;
    grRefreshTimeList& find_or_add(dgRenderer* renderer);

    std::vector<std::unique_ptr<grRefreshTimeList>> the_lists; // in the order of their first measurements
    int the_maximum;
};
