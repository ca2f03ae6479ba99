#pragma once

#include <functional>
#include <iosfwd>
#include <string>

/// A bar on one line of a terminal, drawn over as work goes on and wiped away at its end.
class flProgress
{
public:
    /// stream null: draws nothing.
    flProgress(std::ostream* stream, const std::string& title) : the_stream(stream), the_title(title) {}
    ~flProgress() { wipe(); }
    flProgress(const flProgress&) = delete;
    flProgress& operator=(const flProgress&) = delete;

    /// The share done, from 0 to 1. Draws only when the bar or the figure beside it changes.
    void show(double share);
    /// Takes the bar off the line.
    void wipe();
    /// show, as a function for calls that report how much is done.
    std::function<void(double)> reporter()
    {
        return [this](double share) { show(share); };
    }

private:
    std::ostream* the_stream;
    std::string the_title;
    int the_percent = -1; // last drawn
};
