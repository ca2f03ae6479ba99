#include "msPlainObj.h"

#include <tiny_obj_loader.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <istream>
#include <streambuf>
#include <string_view>

namespace
{
constexpr int faces_between_reports = 1 << 14;

using Characters = std::array<bool, 256>;

constexpr Characters characters(std::string_view of)
{
    Characters known{};
    for (const char c : of)
        known[static_cast<unsigned char>(c)] = true;
    return known;
}

constexpr Characters of_numbers = characters("0123456789+-.eE"), of_corners = characters("0123456789/");

// How many words a line has; -1 when it has other characters than these.
int count_words(std::string_view line, const Characters& known)
{
    int count = 0;
    bool in_word = false;
    for (const char c : line)
    {
        const bool blank = c == ' ' || c == '\t';
        if (!blank && !known[static_cast<unsigned char>(c)])
            return -1;
        count += !blank && !in_word;
        in_word = !blank;
    }
    return count;
}

bool is_plain(std::string_view line)
{
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (line.find('\r') != line.npos || (!line.empty() && line.back() == '\\'))
        return false;
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    const std::string_view keyword = line.substr(0, line.find_first_of(" \t"));
    const std::string_view rest = line.substr(keyword.size());
    if (keyword == "v" || keyword == "vn")
        return count_words(rest, of_numbers) >= 3;
    if (keyword == "vt")
        return count_words(rest, of_numbers) >= 1;
    if (keyword == "f")
        return count_words(rest, of_corners) == 3;
    for (const char* other : {"", "g", "o", "s", "usemtl", "mtllib"})
        if (keyword == other)
            return true;
    return keyword.starts_with('#');
}

// A text in memory as a stream.
class TextBuffer : public std::streambuf
{
public:
    explicit TextBuffer(std::vector<char>& text) { setg(text.data(), text.data(), text.data() + text.size()); }
    double share() const { return static_cast<double>(gptr() - eback()) / static_cast<double>(egptr() - eback()); }
};

// Puts meshes together from what the reader calls.
class Meshes
{
public:
    Meshes(const std::function<void(const msMesh&)>& receive, const TextBuffer& buffer, const ms_progress& progress)
        : m_receive(receive), m_buffer(buffer), m_progress(progress)
    {}
    const std::string& fault() const { return m_fault; }

    static tinyobj::callback_t callbacks()
    {
        tinyobj::callback_t calls;
        calls.vertex_cb = [](void* to, float x, float y, float z, float) { self(to).m_places.push_back({x, y, z}); };
        calls.normal_cb = [](void* to, float x, float y, float z) { self(to).m_directions.push_back({x, y, z}); };
        calls.texcoord_cb = [](void* to, float x, float y, float) { self(to).m_coordinates.push_back({x, y, 0}); };
        calls.index_cb = [](void* to, tinyobj::index_t* corners, int) { self(to).add_triangle(corners); };
        calls.group_cb = [](void* to, const char**, int) { self(to).end_mesh(); };
        calls.object_cb = [](void* to, const char*) { self(to).end_mesh(); };
        calls.usemtl_cb = [](void* to, const char* name, int)
        {
            if (self(to).m_material != name)
                self(to).end_mesh();
            self(to).m_material = name;
        };
        return calls;
    }

    void end_mesh()
    {
        if (m_corners.empty() || !m_fault.empty())
            return;
        ++m_number;
        const auto numbers = [](const Triples& values) { return values.empty() ? nullptr : values[0].data(); };
        // Nodes without a normal or texture coordinates of their own leave none to the others.
        if (!m_has_normals)
            m_normals.clear();
        if (!m_has_texture)
            m_texture.clear();
        m_receive({m_number, static_cast<int>(m_nodes.size()), static_cast<int>(m_corners.size() / 3), numbers(m_nodes),
                   numbers(m_normals), numbers(m_texture), [this] { return m_corners; }});
        for (Triples* values : {&m_nodes, &m_normals, &m_texture})
            values->clear();
        m_keys.clear();
        m_corners.clear();
        m_has_normals = m_has_texture = true;
    }

private:
    using Triples = std::vector<std::array<float, 3>>;

    // The indices that a node was made of, and the node made before for the same place; -1: none.
    struct Key
    {
        int normal, texture, next;
    };
    // The last node made for a place, in the mesh of that number.
    struct Last
    {
        int mesh = -1, node = -1;
    };

    static Meshes& self(void* object) { return *static_cast<Meshes*>(object); }

    void add_triangle(const tinyobj::index_t* corners)
    {
        for (int k = 0; k < 3 && m_fault.empty(); ++k)
            m_corners.push_back(node(corners[k]));
        if (m_progress && ++m_n_faces % faces_between_reports == 0)
            m_progress(m_buffer.share());
    }

    // The values of an index, which counts from 1, or of none when it is 0.
    const std::array<float, 3>& value(const Triples& values, int index)
    {
        static constexpr std::array<float, 3> none = {};
        if (index >= 0 && static_cast<std::size_t>(index) <= values.size())
            return index > 0 ? values[static_cast<std::size_t>(index - 1)] : none;
        m_fault = "it names nodes that it does not have";
        return none;
    }

    int node(const tinyobj::index_t& corner)
    {
        const auto place = static_cast<std::size_t>(corner.vertex_index);
        if (corner.vertex_index < 1 || place > m_places.size())
        {
            m_fault = "it names nodes that it does not have";
            return 0;
        }
        if (m_lasts.size() <= place)
            m_lasts.resize(m_places.size() + 1);
        Last& last = m_lasts[place];
        if (last.mesh != m_number)
            last = {m_number, -1};
        for (int i = last.node; i >= 0; i = m_keys[static_cast<std::size_t>(i)].next)
        {
            const Key& key = m_keys[static_cast<std::size_t>(i)];
            if (key.normal == corner.normal_index && key.texture == corner.texcoord_index)
                return i;
        }
        const int made = static_cast<int>(m_nodes.size());
        m_keys.push_back({corner.normal_index, corner.texcoord_index, last.node});
        last.node = made;
        m_nodes.push_back(value(m_places, corner.vertex_index));
        m_normals.push_back(value(m_directions, corner.normal_index));
        m_texture.push_back(value(m_coordinates, corner.texcoord_index));
        m_has_normals = m_has_normals && corner.normal_index > 0;
        m_has_texture = m_has_texture && corner.texcoord_index > 0;
        for (const float number :
             {m_nodes.back()[0], m_nodes.back()[1], m_nodes.back()[2], m_texture.back()[0], m_texture.back()[1]})
            if (!std::isfinite(number) && m_fault.empty())
                m_fault = "mesh " + std::to_string(m_number + 1) +
                          " has nodes at places or with texture coordinates that are not finite, or too large for "
                          "single precision";
        return made;
    }

    const std::function<void(const msMesh&)>& m_receive;
    const TextBuffer& m_buffer;
    const ms_progress& m_progress;
    Triples m_places, m_directions, m_coordinates; // of the file
    std::vector<Last> m_lasts;                     // for places, counted from 1
    Triples m_nodes, m_normals, m_texture;         // of the mesh, by node
    std::vector<Key> m_keys;
    std::vector<int> m_corners;
    bool m_has_normals = true, m_has_texture = true;
    int m_number = 0; // of meshes that are done
    int m_n_faces = 0;
    std::string m_material, m_fault;
};
}

int ms_is_plain_obj(const std::vector<char>& text)
{
    for (const char *line = text.data(), *const end = line + text.size(); line < end;)
    {
        const auto* line_end = static_cast<const char*>(std::memchr(line, '\n', static_cast<std::size_t>(end - line)));
        if (!line_end)
            line_end = end;
        if (!is_plain({line, static_cast<std::size_t>(line_end - line)}))
            return 0;
        line = line_end + 1;
    }
    return 1;
}

int ms_import_plain_obj(std::vector<char>& text, const std::function<void(const msMesh&)>& receive, std::string& error,
                        const ms_progress& progress)
{
    TextBuffer buffer(text);
    std::istream stream(&buffer);
    Meshes meshes(receive, buffer, progress);
    std::string warning;
    if (!tinyobj::LoadObjWithCallback(stream, Meshes::callbacks(), &meshes, nullptr, &warning, &error) && error.empty())
        error = "it cannot be read";
    if (error.empty())
        meshes.end_mesh();
    if (error.empty())
        error = meshes.fault();
    return error.empty();
}
