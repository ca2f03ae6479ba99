#include "msTarnFile.h"

#include "flMessages.h"
#include "flOutputFile.h"
#include "flPath.h"

#include "gr_read_tarn_tblock.h"
#include "gr_write_tarn_tblock.h"

#include <fstream>
#include <iterator>
#include <streambuf>

namespace
{
// What a node and a triangle take in a file, on average, for the progress.
const double node_bytes = 120, triangle_bytes = 21;

// Passes bytes on and tells how many of those that are expected went through.
class told_buffer : public std::streambuf
{
public:
    told_buffer(std::streambuf& source, double expected_bytes, const ms_progress& progress)
        : the_source(source), the_expected(expected_bytes), the_progress(progress)
    {}

protected:
    std::streamsize xsgetn(char* to, std::streamsize count) override { return tell(the_source.sgetn(to, count)); }
    std::streamsize xsputn(const char* from, std::streamsize count) override
    {
        return tell(the_source.sputn(from, count));
    }
    std::streampos seekoff(std::streamoff offset, std::ios::seekdir from, std::ios::openmode mode) override
    {
        return the_source.pubseekoff(offset, from, mode);
    }
    std::streampos seekpos(std::streampos position, std::ios::openmode mode) override
    {
        return the_source.pubseekpos(position, mode);
    }
    int sync() override { return the_source.pubsync(); }

private:
    std::streamsize tell(std::streamsize count)
    {
        the_done += static_cast<double>(count);
        if (the_progress)
            the_progress(the_done / the_expected);
        return count;
    }

    std::streambuf& the_source;
    double the_expected;
    double the_done = 0;
    const ms_progress& the_progress;
};
}

int ms_read_tarn(const std::string& file, ms_blocks& blocks, std::string& error, const ms_progress& progress)
{
    ms_blocks read;
    if (!ms_read_tarn(
            file, [&](std::unique_ptr<giTriBlock> block) { read.push_back(std::move(block)); }, error, progress))
        return 0;
    std::move(read.begin(), read.end(), std::back_inserter(blocks));
    return 1;
}

int ms_read_tarn(const std::string& file, const ms_block_taker& take, std::string& error, const ms_progress& progress)
{
    std::ifstream source;
    if (!fl_open_for_reading(file, source, error))
        return 0;
    std::error_code failure;
    told_buffer buffer(*source.rdbuf(), static_cast<double>(std::filesystem::file_size(fl_path(file), failure)),
                       progress);
    std::istream stream(&buffer);
    std::string complaint;
    if (gr_read_tarn_tblock(stream, take, complaint))
        return 1;
    error = fl_name(file) + ": " + (complaint.empty() ? "the tarn file holds no blocks" : complaint);
    return 0;
}

int ms_write_tarn(const std::string& file, const ms_blocks& blocks, std::string& error, const ms_progress& progress)
{
    double expected = 1;
    std::vector<const giTriBlock*> pointers;
    for (const auto& block : blocks)
    {
        pointers.push_back(block.get());
        expected += node_bytes * block->node_count() + triangle_bytes * block->triangle_count();
    }
    flOutputFile output;
    if (!output.open(file, error))
        return 0;
    told_buffer buffer(*output.stream().rdbuf(), expected, progress);
    std::ostream stream(&buffer);
    if (!gr_write_tarn_tblock(stream, pointers.data(), static_cast<int>(pointers.size())) && stream.good())
    {
        error = fl_name(file) + ": nothing is written, as there are no blocks, or values in them that are not finite";
        return 0;
    }
    return output.commit(error);
}
