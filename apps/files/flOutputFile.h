#pragma once

#include <memory>
#include <ostream>
#include <string>

/// A file that a program writes.
///
/// A plain file, and a name that is free, gets its contents at once: they are written beside it, under a name that
/// nobody else has, and take its place when they are complete. Until then, and when it never comes to that, what was
/// there stays as it was, and what is unfinished is removed, also when a signal ends the process. A file that is
/// replaced keeps its permissions, and a link to it stays.
///
/// A device, a pipe and a socket are written to as they are, and "-" is the standard output.
class flOutputFile
{
public:
    flOutputFile();
    /// Drops what was not published.
    ~flOutputFile();
    flOutputFile(const flOutputFile&) = delete;
    flOutputFile& operator=(const flOutputFile&) = delete;

    /// To be called once, before everything else. Answers 1, or 0 with error set to a text that names the file.
    int open(const std::string& path, std::string& error);

    /// Fails when something could not be written; publish and commit know why.
    std::ostream& stream() { return the_stream; }

    /// Puts what was written so far in its place. What is written from now on is added there with every flush of the
    /// stream, all of it or nothing. Answers 1, or 0 with error set and what was there before as it was.
    int publish(std::string& error);

    /// Publishes, and ends the file. Answers 1, or 0 with error set.
    int commit(std::string& error);

private:
    class Buffer;

    int failed(int error_number, std::string& error);
    void close();

    std::unique_ptr<Buffer> the_buffer;
    std::ostream the_stream;
    std::string the_name;      // for messages
    std::string the_place;     // where the contents belong, links followed
    std::string the_temporary; // where they are; empty once they are in their place
};

/// Writes a text to a file as a whole. Answers 1, or 0 with error set to a text that names the file.
int fl_write(const std::string& path, std::string_view text, std::string& error);
