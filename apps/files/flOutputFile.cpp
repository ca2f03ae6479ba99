#include "flOutputFile.h"

#include "flMessages.h"
#include "flPath.h"
#include "flSystem.h"

#include <cerrno>
#include <streambuf>
#include <system_error>
#include <vector>

namespace fs = std::filesystem;

// Collects bytes and hands them to a descriptor, each piece as a whole or not at all.
class flOutputFile::Buffer : public std::streambuf
{
public:
    Buffer() : the_bytes(64 * 1024) { setp(nullptr, nullptr); }
    ~Buffer() override
    {
        if (the_descriptor >= 0)
            fl_close(the_descriptor);
    }
    void start(int descriptor)
    {
        the_descriptor = descriptor;
        setp(the_bytes.data(), the_bytes.data() + the_bytes.size());
    }
    int descriptor() const { return the_descriptor; }
    // The errno of what went wrong, 0 for nothing.
    int error() const { return the_error; }
    void end()
    {
        if (the_descriptor >= 0 && fl_close(the_descriptor) != 0 && !the_error)
            the_error = errno;
        the_descriptor = -1;
        setp(nullptr, nullptr);
    }

protected:
    int sync() override
    {
        const char* from = pbase();
        while (from < pptr() && !the_error)
        {
            const long written = fl_write_some(the_descriptor, from, static_cast<std::size_t>(pptr() - from));
            if (written < 0)
                the_error = errno;
            else
                from += written;
        }
        if (the_error)
        {
            fl_cut(the_descriptor, the_length);
            setp(nullptr, nullptr);
            return -1;
        }
        the_length += pptr() - pbase();
        start(the_descriptor);
        return 0;
    }
    int overflow(int byte) override
    {
        if (!pbase() || sync() != 0)
            return traits_type::eof();
        if (byte != traits_type::eof())
            sputc(traits_type::to_char_type(byte));
        return traits_type::not_eof(byte);
    }

private:
    std::vector<char> the_bytes;
    int the_descriptor = -1;
    int the_error = 0;
    long long the_length = 0;
};

namespace
{
constexpr int most_links = 40;

// Where a link leads to in the end, there or not.
std::string followed(const std::string& path)
{
    fs::path place = fl_path(path);
    std::error_code failure;
    for (int i = 0; i < most_links && fs::is_symlink(place, failure); ++i)
        place = place.parent_path() / fs::read_symlink(place, failure);
    return fl_name_of(place);
}

std::string reason(int error_number)
{
    return std::generic_category().message(error_number);
}
}

flOutputFile::flOutputFile() : the_buffer(std::make_unique<Buffer>()), the_stream(the_buffer.get()) {}

flOutputFile::~flOutputFile()
{
    close();
}

int flOutputFile::open(const std::string& path, std::string& error)
{
    the_name = fl_name(path);
    the_place = followed(path);
    std::error_code failure;
    const fs::file_type type = fs::status(fl_path(the_place), failure).type();
    if (path != "-" && type == fs::file_type::directory)
    {
        error = the_name + ": this is a folder, no file";
        return 0;
    }
    const bool beside = path != "-" && path != "/dev/stdout" && !path.starts_with("/dev/fd/") &&
                        (type == fs::file_type::regular || type == fs::file_type::not_found);
    const int descriptor = beside ? fl_create_beside(the_place, the_temporary) : fl_open_through(path);
    if (descriptor < 0)
    {
        the_temporary.clear();
        error = the_name + ": the file cannot be written: " + reason(errno);
        return 0;
    }
    the_buffer->start(descriptor);
    return 1;
}

int flOutputFile::publish(std::string& error)
{
    the_stream.flush();
    if (the_buffer->error())
        return failed(the_buffer->error(), error);
    if (!the_stream)
        return failed(EIO, error);
    if (the_temporary.empty())
        return 1;
    // What is replaced is given up only for what is safe on the disk.
    std::error_code failure;
    if (fs::exists(fl_path(the_place), failure) && fl_sync(the_buffer->descriptor()) != 0)
        return failed(errno, error);
    if (fl_replace(the_temporary, the_place) != 0)
        return failed(errno, error);
    fl_forget(the_temporary);
    the_temporary.clear();
    return 1;
}

int flOutputFile::commit(std::string& error)
{
    if (!publish(error))
        return 0;
    the_buffer->end();
    return the_buffer->error() ? failed(the_buffer->error(), error) : 1;
}

int flOutputFile::failed(int error_number, std::string& error)
{
    error = the_name + ": writing failed: " + reason(error_number);
    close();
    return 0;
}

void flOutputFile::close()
{
    the_buffer->end();
    if (the_temporary.empty())
        return;
    std::error_code failure;
    fs::remove(fl_path(the_temporary), failure);
    fl_forget(the_temporary);
    the_temporary.clear();
}

int fl_write(const std::string& path, std::string_view text, std::string& error)
{
    flOutputFile file;
    if (!file.open(path, error))
        return 0;
    file.stream().write(text.data(), static_cast<std::streamsize>(text.size()));
    return file.commit(error);
}
