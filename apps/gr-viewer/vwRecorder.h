#pragma once

#include "vwSession.h"

#include "coReceiver.h"
#include "flOutputFile.h"

#include <string>

class gwInput;

/// Writes what arrives at an input, and what it is told besides, as a session file. Times start with the recorder and
/// are those of the library's clock.
///
/// The file is there from the first step on, and every step is added to it as it happens: it can be played however the
/// process ends. A file that was there before stays until then.
class vwRecorder : public coReceiver
{
public:
    /// Listens to input, which must outlive the recorder, before everything that registers later.
    explicit vwRecorder(gwInput& input);

    /// Opens the file, for the head of a session and its steps. Answers 1, or 0 with error set.
    int start(const std::string& file, const vwSession& head, std::string& error);

    void idle();
    void resized(int width, int height);
    /// Notes that a picture is to be taken here; pictures are numbered from 1.
    void picture();
    /// Ends the file with a last picture. Answers 1, or 0 with error set when not everything could be written.
    int finish(std::string& error);

private:
    void event(void* sender, void* data);
    void write(vwStep& step);

    flOutputFile the_file;
    int the_open = 0;      // and nothing has failed
    std::string the_error; // what has failed
    double the_start;
    double the_last_time = 0; // of the session, so that times never decrease
    int the_n_pictures = 0;
};
