#include "msMeshFile.h"

#include "msChild.h"
#include "msExport.h"
#include "msImport.h"

#include "flMessages.h"
#include "flOutputFile.h"

#include <algorithm>
#include <cctype>
#include <exception>
#include <filesystem>
#include <fstream>
#include <istream>
#include <iterator>
#include <new>
#include <type_traits>

namespace
{
// Formats that the tests read and write; the library for them has many more, of which some crash.
const struct
{
    const char* ending;
    const char* exporter; // null: not written
} formats[] = {{"stl", "stlb"}, {"obj", "objnomtl"}, {"ply", "plyb"},    {"gltf", nullptr},
               {"glb", "glb2"}, {"3mf", nullptr},    {"dae", "collada"}, {"off", nullptr}};

const char* const broken_down = "its reader broke down, the file must be damaged";

// The ending of a name in small letters, without the dot.
std::string ending(const std::string& file)
{
    std::string found = std::filesystem::path(file).extension().string();
    std::transform(found.begin(), found.end(), found.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return found.empty() ? found : found.substr(1);
}

const char* exporter(const std::string& file)
{
    for (const auto& format : formats)
        if (ending(file) == format.ending)
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

// What a child says, one character before each: how much is done, a block, or what is wrong.
enum Message : char
{
    PROGRESS = 'p',
    BLOCK = 'b',
    FAULT = 'f'
};

template <class Value>
void send(std::ostream& os, const Value& value)
{
    static_assert(std::is_trivially_copyable_v<Value>);
    os.write(reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Value>
bool receive(std::istream& is, Value& value)
{
    return static_cast<bool>(is.read(reinterpret_cast<char*>(&value), sizeof value));
}

template <class Values>
void send_all(std::ostream& os, const Values& values)
{
    static_assert(std::is_trivially_copyable_v<typename Values::value_type>);
    send(os, static_cast<int>(values.size()));
    os.write(reinterpret_cast<const char*>(values.data()),
             static_cast<std::streamsize>(values.size() * sizeof(typename Values::value_type)));
}

// Room is made as values arrive: a count alone takes no memory.
template <class Values>
bool receive_all(std::istream& is, Values& values)
{
    constexpr int piece = 1 << 20;
    int count = 0;
    if (!receive(is, count) || count < 0)
        return false;
    for (int done = 0; done < count;)
    {
        const int some = std::min(piece, count - done);
        values.resize(static_cast<std::size_t>(done + some));
        if (!is.read(reinterpret_cast<char*>(values.data() + done),
                     static_cast<std::streamsize>(some * sizeof(typename Values::value_type))))
            return false;
        done += some;
    }
    return true;
}

void send_block(std::ostream& os, const giTriBlock& block)
{
    std::vector<giPoint3> nodes;
    for (int i = 0; i < block.node_count(); ++i)
        nodes.push_back(block.nodes()[i]);
    send(os, BLOCK);
    send_all(os, nodes);
    send_all(os, block.triangles());
    send_all(os, *block.normals());
    send_all(os, block.texture_coordinates() ? *block.texture_coordinates() : std::vector<giPoint2>());
}

std::unique_ptr<giTriBlock> receive_block(std::istream& is)
{
    auto block = std::make_unique<giTriBlock>();
    std::vector<giPoint3> nodes;
    std::vector<giPoint2> texture;
    if (!receive_all(is, nodes) || !receive_all(is, block->triangles()) || !receive_all(is, block->create_normals()) ||
        !receive_all(is, texture) || block->normals()->size() != nodes.size() ||
        (!texture.empty() && texture.size() != nodes.size()))
        return nullptr;
    const auto inside = [&](int node) { return node >= 0 && static_cast<std::size_t>(node) < nodes.size(); };
    for (const giTriangle& t : block->triangles())
        if (!inside(t[0]) || !inside(t[1]) || !inside(t[2]))
            return nullptr;
    if (!texture.empty())
        block->create_texture_coordinates() = std::move(texture);
    block->nodes() = giBoxArrPoint3(std::move(nodes));
    return block;
}

void import_and_send(const std::string& file, const giAngle& crease, std::ostream& os)
{
    const ms_progress progress = [&os](double share)
    {
        send(os, PROGRESS);
        send(os, share);
        os.flush();
    };
    std::string fault;
    try
    {
        ms_blocks blocks;
        if (ms_import(file, ending(file), crease, blocks, fault, progress))
            for (const auto& block : blocks)
                send_block(os, *block);
    }
    catch (const std::bad_alloc&)
    {
        fault = ms_no_memory;
    }
    catch (const std::exception& exception)
    {
        fault = fl_printable(exception.what());
    }
    if (fault.empty())
        return;
    send(os, FAULT);
    send_all(os, fault);
}

// Answers what is wrong, or nothing.
std::string receive_blocks(std::istream& is, ms_blocks& blocks, const ms_progress& progress)
{
    for (Message message; receive(is, message);)
    {
        double share = 0;
        std::string fault;
        if (message == PROGRESS && receive(is, share) && progress)
            progress(share);
        if (message == BLOCK)
        {
            blocks.push_back(receive_block(is));
            if (!blocks.back())
                return broken_down;
        }
        if (message == FAULT && receive_all(is, fault))
            return fault;
    }
    return {};
}
}

int ms_readable(const std::string& file)
{
    return std::any_of(std::begin(formats), std::end(formats),
                       [&](const auto& format) { return ending(file) == format.ending; });
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

int ms_read(const std::string& file, const giAngle& crease, ms_blocks& blocks, std::string& error,
            const ms_progress& progress)
{
    std::ifstream stream;
    if (!fl_open_for_reading(file, stream, error))
        return 0;
    if (!ms_readable(file))
    {
        error = fl_name(file) + ": no mesh format has this ending; " + ms_readable_endings() + " are read";
        return 0;
    }
    ms_blocks read;
    std::string fault;
    const msChildStatus status = ms_run_in_child([&](std::ostream& os) { import_and_send(file, crease, os); },
                                                 [&](std::istream& is) { fault = receive_blocks(is, read, progress); });
    switch (status)
    {
    case msCHILD_DONE: break;
    case msCHILD_BROKE_DOWN:
        if (fault.empty())
            fault = broken_down;
        break;
    case msCHILD_TOOK_TOO_LONG: fault = "reading it takes longer than a file of its size should"; break;
    case msCHILD_NOT_STARTED: fault = "no process can be started to read it"; break;
    }
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
