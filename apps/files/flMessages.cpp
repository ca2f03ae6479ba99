#include "flMessages.h"

#include "flPath.h"

#include "apFile.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace
{
constexpr std::size_t longest_quote = 40; // characters

// The length of the printable character of UTF-8 that a text starts with, 0 when there is none.
std::size_t printable(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x80)
        return byte(0) >= 0x20 && byte(0) != 0x7f;
    const std::size_t length = byte(0) >= 0xf0 ? 4 : byte(0) >= 0xe0 ? 3 : 2;
    if (byte(0) < 0xc2 || byte(0) > 0xf4 || text.size() < length)
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xc0) != 0x80)
            return 0;
    // 80 to 9f are control characters, in two bytes.
    return byte(0) == 0xc2 && byte(1) < 0xa0 ? 0 : length;
}

std::string why_unreadable(const std::string& name)
{
    namespace fs = std::filesystem;
    const fs::path path = fl_path(name);
    std::error_code failure;
    switch (fs::status(path, failure).type())
    {
    case fs::file_type::not_found:
        return fs::is_symlink(path, failure) ? "this is a link to a file that is not there" : "there is no such file";
    case fs::file_type::directory: return "this is a folder, no file";
    case fs::file_type::regular:
        errno = 0;
        if (std::ifstream(path).is_open())
            return "the file cannot be read";
        return "the file cannot be opened: " + std::generic_category().message(errno);
    case fs::file_type::none: return "the file cannot be reached: " + failure.message();
    default: return "this is a device or a pipe, no plain file";
    }
}
}

std::string fl_printable(std::string_view text, std::size_t most_characters)
{
    static const char digits[] = "0123456789abcdef";
    std::string shown;
    for (std::size_t count = 0; !text.empty(); ++count)
    {
        if (count == most_characters)
            return shown + "...";
        const std::size_t length = printable(text);
        if (length)
            shown += text.substr(0, length);
        else
            shown.append("\\x").append({digits[text[0] >> 4 & 15], digits[text[0] & 15]});
        text.remove_prefix(length ? length : 1);
    }
    return shown;
}

std::string fl_quoted(std::string_view text)
{
    return "'" + fl_printable(text, longest_quote) + "'";
}

std::string fl_name(std::string_view path)
{
    return path == "-" ? "standard output" : fl_printable(path, path.size());
}

int fl_open_for_reading(const std::string& path, std::ifstream& stream, std::string& error)
{
    if (ap_open_for_reading(path, stream))
        return 1;
    error = fl_name(path) + ": " + why_unreadable(path);
    return 0;
}

int fl_read_text(const std::string& path, std::string& text, std::string& error)
{
    std::ifstream stream;
    if (!fl_open_for_reading(path, stream, error))
        return 0;
    std::string read(std::istreambuf_iterator<char>(stream), {});
    text.swap(read);
    return 1;
}

int fl_same_file(const std::string& a, const std::string& b)
{
    std::error_code failure;
    return std::filesystem::equivalent(fl_path(a), fl_path(b), failure);
}
