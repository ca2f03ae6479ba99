#pragma once

#include <cstdint>
#include <streambuf>
#include <vector>

/// One end of a pipe as a stream's buffer. What is written goes out when the buffer is full and when the stream is
/// flushed; reading and writing wait for the other end.
class msPipe : public std::streambuf
{
public:
    /// The system's number of the end, which stays the caller's to close.
    explicit msPipe(std::intptr_t end);
    msPipe(const msPipe&) = delete;
    msPipe& operator=(const msPipe&) = delete;

protected:
    int underflow() override;
    int overflow(int byte) override;
    int sync() override;
    std::streamsize xsputn(const char* from, std::streamsize count) override;
    std::streamsize xsgetn(char* to, std::streamsize count) override;

private:
    // Answers how many bytes came; 0 at the end, and when nothing can be read.
    std::streamsize read(char* to, std::streamsize count);
    // Answers how many bytes were taken: all, unless nobody reads them.
    std::streamsize write(const char* from, std::streamsize count);

    std::intptr_t the_end;
    std::vector<char> the_bytes;
};
