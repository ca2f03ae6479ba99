#include "msMeshFile.h"

#include "msChild.h"
#include "msEnding.h"
#include "msExport.h"
#include "msReceiving.h"

#include "flMessages.h"
#include "flOutputFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace
{
// Formats that the tests read and write; the library for them has many more, of which some crash.
const struct
{
    const char* ending;
    const char* exporter; // null: not written
} formats[] = {{"stl", "stlb"}, {"obj", "objnomtl"}, {"ply", "plyb"},    {"gltf", nullptr},
               {"glb", "glb2"}, {"3mf", nullptr},    {"dae", "collada"}, {"off", nullptr}};

const char* exporter(const std::string& file)
{
    for (const auto& format : formats)
        if (ms_ending(file) == format.ending)
            return format.exporter;
    return nullptr;
}

std::string endings(bool written)
{
    std::string list;
    for (const auto& format : formats)
        if (!written || format.exporter)
            list += (list.empty() ? "" : ", ") + std::string(format.ending);
    return list;
}
}

int ms_readable(const std::string& file)
{
    return std::any_of(std::begin(formats), std::end(formats),
                       [&](const auto& format) { return ms_ending(file) == format.ending; });
}

int ms_check_writable(const std::string& file, std::string& error)
{
    if (exporter(file))
        return 1;
    error =
        fl_name(file) + ": no mesh format that can be written has this ending; " + ms_writable_endings() + " are known";
    return 0;
}

std::string ms_readable_endings()
{
    return endings(false);
}

std::string ms_writable_endings()
{
    return endings(true);
}

int ms_check_readable(const std::string& file, std::string& error)
{
    std::ifstream stream;
    if (!fl_open_for_reading(file, stream, error))
        return 0;
    if (ms_readable(file))
        return 1;
    error = fl_name(file) + ": no mesh format has this ending; " + ms_readable_endings() + " are read";
    return 0;
}

int ms_read(const std::string& file, const giAngle& crease, ms_blocks& blocks, std::string& error,
            const ms_progress& progress)
{
    if (!ms_check_readable(file, error))
        return 0;
    msChild child({file});
    ms_blocks read;
    std::string fault = ms_receive_file(
        child.stream(), crease, [&](std::unique_ptr<giTriBlock> block) { read.push_back(std::move(block)); }, progress);
    if (const std::string end = child.finish(); !end.empty())
        fault = end;
    if (!fault.empty())
    {
        error = fl_name(file) + ": " + fault;
        return 0;
    }
    std::move(read.begin(), read.end(), std::back_inserter(blocks));
    return 1;
}

int ms_write(const std::string& file, const ms_blocks& blocks, std::string& error)
{
    if (!ms_check_writable(file, error))
        return 0;
    flOutputFile output;
    if (!output.open(file, error))
        return 0;
    std::string fault;
    if (ms_export(blocks, exporter(file), output.stream(), fault))
        return output.commit(error);
    error = fl_name(file) + ": " + fault;
    return 0;
}
