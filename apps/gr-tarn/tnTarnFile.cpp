#include "tnTarnFile.h"

#include "tnProgress.h"

#include "gr_read_tarn_tblock.h"
#include "gr_write_tarn_tblock.h"

#include "apFile.h"

#include <filesystem>
#include <fstream>

namespace
{
// What a node and a triangle take in a file, on average, for the progress bar.
const double node_bytes = 120, triangle_bytes = 21;

// A file that tells how many of its expected bytes went through it.
class told_file : public std::filebuf
{
public:
    told_file(double expected_bytes, tnProgress& progress) : the_expected(expected_bytes), the_progress(progress) {}

protected:
    std::streamsize xsgetn(char* to, std::streamsize count) override { return tell(std::filebuf::xsgetn(to, count)); }
    std::streamsize xsputn(const char* from, std::streamsize count) override
    {
        return tell(std::filebuf::xsputn(from, count));
    }

private:
    std::streamsize tell(std::streamsize count)
    {
        the_done += static_cast<double>(count);
        the_progress.show(the_done / the_expected);
        return count;
    }

    double the_expected;
    double the_done = 0;
    tnProgress& the_progress;
};
}

int tn_read(const std::string& file, tn_blocks& blocks, std::string& error, tnProgress& progress)
{
    std::error_code failure;
    if (!ap_file_exists(apPathName(file)))
    {
        error = file + ": there is no such file";
        return 0;
    }
    told_file buffer(static_cast<double>(std::filesystem::file_size(file, failure)), progress);
    if (!buffer.open(file, std::ios::in | std::ios::binary))
    {
        error = file + ": the file cannot be opened";
        return 0;
    }
    std::istream stream(&buffer);
    giTriBlockcoDList list;
    int count = 0;
    gr_read_tarn_tblock(stream, count, &list);
    for (giTriBlock* block : list)
        blocks.emplace_back(block);
    if (list.count() > 0)
        return 1;
    error = file + (stream.fail() ? ": this is no complete tarn file" : ": the file holds no blocks");
    return 0;
}

int tn_write(const std::string& file, const tn_blocks& blocks, std::string& error, tnProgress& progress)
{
    double expected = 1;
    std::vector<const giTriBlock*> pointers;
    for (const auto& block : blocks)
    {
        pointers.push_back(block.get());
        expected += node_bytes * block->node_count() + triangle_bytes * block->triangle_count();
    }

    const std::string unfinished = file + ".part";
    told_file buffer(expected, progress);
    if (!buffer.open(unfinished, std::ios::out | std::ios::binary | std::ios::trunc))
    {
        error = file + ": the file cannot be created";
        return 0;
    }
    std::ostream stream(&buffer);
    const int written = gr_write_tarn_tblock(stream, pointers.data(), static_cast<int>(pointers.size()));
    const bool full = stream.fail();
    const bool closed = buffer.close() != nullptr;
    std::error_code failure;
    if (written > 0 && closed)
        std::filesystem::rename(unfinished, file, failure);
    if (written > 0 && closed && !failure)
        return 1;

    if (failure)
        error = file + ": " + failure.message();
    else
        error = file + (full || !closed ? ": writing failed" : ": the blocks hold numbers that are not finite");
    std::filesystem::remove(unfinished, failure);
    return 0;
}
