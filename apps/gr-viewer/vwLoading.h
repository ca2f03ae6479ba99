#pragma once

#include "flProgress.h"

#include <memory>
#include <string>
#include <vector>

class msReading;
class vwModel;

/// The files of a model, read while the viewer goes on with something else. A bar on the terminal, where the standard
/// error is one, tells how far that is.
class vwLoading
{
public:
    /// Starts reading. The model must outlive this. To be made before OpenGL is first used: drivers load libraries.
    vwLoading(vwModel& model, const std::vector<std::string>& files);
    ~vwLoading();
    vwLoading(const vwLoading&) = delete;
    vwLoading& operator=(const vwLoading&) = delete;

    /// Adds what has come to the model, and waits for something at most so long. Answers 1, or 0 with error set by the
    /// first file that fails: the blocks before that are in the model then.
    int update(double seconds, std::string& error);
    /// Adds all.
    int finish(std::string& error);

    int done() const { return the_done; }
    /// How much is read, from 0 to 1.
    double share() const;

private:
    vwModel& the_model;
    std::vector<std::string> the_files;
    std::unique_ptr<msReading> the_reading;
    flProgress the_bar;
    std::size_t the_started = 0; // files of which blocks have come
    int the_done = 0;
};
