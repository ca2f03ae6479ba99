#pragma once

#include "giAngle.h"
#include "msBlocks.h"

#include <memory>
#include <string>
#include <vector>

/// How far reading is.
enum msReadingStatus
{
    msREADING_GOES_ON = 0,
    msREADING_DONE = 1,
    msREADING_FAILED = 2
};

/// Mesh files (by their endings, else tarn files) that are read one after the other while this process goes on with
/// something else, as ms_read and ms_read_tarn read them. Their blocks are taken as they come.
class msReading
{
public:
    /// Starts. To be made where no other thread is in the middle of loading libraries: the process of the importers may
    /// be a copy of this one.
    msReading(const std::vector<std::string>& files, const giAngle& crease);
    /// Stops wherever it is.
    ~msReading();
    msReading(const msReading&) = delete;
    msReading& operator=(const msReading&) = delete;

    /// Moves the blocks that have come to the end of blocks, with the file of each; waits for one, or the end, for at
    /// most so many seconds. What a file that fails held before its damage is among them. error is set on failure.
    struct Arrival
    {
        std::unique_ptr<giTriBlock> block;
        std::size_t file; // as the constructor had it
    };
    msReadingStatus take(double seconds, std::vector<Arrival>& arrivals, std::string& error);

    /// How much is read, from 0 to 1 of all bytes.
    double share() const;

private:
    struct Shared;
    std::unique_ptr<Shared> the_shared;
};
