#pragma once

#include <chrono>
#include <string>
#include <vector>

/// One frame of a session.
struct vwFrame
{
    double session_time = 0; ///< seconds of the clock that the library sees
    double seconds = 0;      ///< what drawing it took on the real clock
};

/// Short account of a number of frames, in seconds; all 0 when there are none.
struct vwFrameSummary
{
    int count = 0;
    double mean = 0;
    double median = 0;
    double slow = 0; ///< 95 of 100 frames were quicker
    double longest = 0;
};

/// The summary in words, for people who watch it.
std::string vw_frame_text(const vwFrameSummary& summary);

/// Stopwatch on the real clock, which replaced library clocks do not touch.
class vwStopwatch
{
public:
    double seconds() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - the_start).count();
    }

private:
    std::chrono::steady_clock::time_point the_start = std::chrono::steady_clock::now();
};

/// The frames drawn so far.
class vwFrameTimes
{
public:
    void add(const vwFrame& frame) { the_frames.push_back(frame); }
    const std::vector<vwFrame>& frames() const { return the_frames; }
    /// How many of the last frames numbers that are renewed all the time are about.
    static constexpr int recent = 60;
    /// Of the last n frames, or of all when n is 0.
    vwFrameSummary summary(int n = 0) const;

private:
    std::vector<vwFrame> the_frames;
};
