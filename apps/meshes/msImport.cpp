#include "msImport.h"

#include "msChild.h"

#include "flMessages.h"

#include "giAngle.h"

#include <assimp/DefaultIOSystem.h>
#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <functional>
#include <iterator>
#include <string_view>
#include <system_error>
#include <unordered_map>

namespace
{
// Faces are parted into triangles in a time that grows with the square of their corners.
constexpr unsigned most_corners = 10000;

class progress_teller : public Assimp::ProgressHandler
{
public:
    explicit progress_teller(const ms_progress& progress) : the_progress(progress) {}
    bool Update(float share) override
    {
        if (the_progress && share >= 0)
            the_progress(share);
        return true;
    }

private:
    const ms_progress& the_progress;
};

// Opens plain files alone, whatever a file names as its materials, and gets the memory for them allowed.
class plain_files : public Assimp::DefaultIOSystem
{
public:
    bool Exists(const char* file) const override
    {
        std::error_code failure;
        return std::filesystem::is_regular_file(file, failure);
    }
    Assimp::IOStream* Open(const char* file, const char* mode) override
    {
        std::error_code failure;
        if (!Exists(file))
            return nullptr;
        ms_allow_file(static_cast<double>(std::filesystem::file_size(file, failure)));
        return DefaultIOSystem::Open(file, mode);
    }
};

// Hears of indices that an importer put right in its own way.
class index_listener : public Assimp::LogStream
{
public:
    explicit index_listener(std::string& fault) : the_fault(fault) {}
    void write(const char* message) override
    {
        if (std::string_view(message).find("out of range") != std::string_view::npos)
            the_fault = "it names nodes that it does not have";
    }

private:
    std::string& the_fault;
};

// The importers' log, for the life of the object.
class listening
{
public:
    explicit listening(std::string& fault)
    {
        Assimp::DefaultLogger::create("", Assimp::Logger::NORMAL, 0);
        Assimp::DefaultLogger::get()->attachStream(new index_listener(fault), Assimp::Logger::Err); // owned there
    }
    ~listening() { Assimp::DefaultLogger::kill(); }
    listening(const listening&) = delete;
    listening& operator=(const listening&) = delete;
};

bool finite(const aiVector3D* values, unsigned count)
{
    return std::all_of(values, values + count,
                       [](const aiVector3D& v)
                       { return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z); });
}

// What is wrong with what an importer made; empty when it can be worked on. Importers check little.
std::string fault_of(const aiScene& scene)
{
    for (unsigned i = 0; i < scene.mNumMeshes; ++i)
    {
        const aiMesh& mesh = *scene.mMeshes[i];
        const std::string name = "mesh " + std::to_string(i + 1);
        if (!finite(mesh.mVertices, mesh.mNumVertices))
            return name + " has nodes at places that are not finite, or too large for single precision";
        if (mesh.HasTextureCoords(0) && !finite(mesh.mTextureCoords[0], mesh.mNumVertices))
            return name + " has texture coordinates that are not finite";
        for (unsigned j = 0; j < mesh.mNumFaces; ++j)
        {
            const aiFace& face = mesh.mFaces[j];
            if (face.mNumIndices > most_corners)
                return name + " has a face with " + std::to_string(face.mNumIndices) + " corners, more than " +
                       std::to_string(most_corners);
            for (unsigned k = 0; k < face.mNumIndices; ++k)
                if (face.mIndices[k] >= mesh.mNumVertices)
                    return name + " has a face with node " + std::to_string(face.mIndices[k]) + " of " +
                           std::to_string(mesh.mNumVertices);
        }
    }
    return {};
}

giVector3 usable_normal(const aiVector3D& n)
{
    // A node of triangles without area has no direction of its own.
    const giVector3 normal(n.x, n.y, n.z);
    const double length = normal.length();
    return std::isfinite(length) && length > 0 ? normal / length : giVector3(0, 0, 1);
}

// What makes two vertices of a mesh one node: equal positions and texture coordinates, normals that differ by no more
// than what their computation leaves.
struct VertexKey
{
    std::array<float, 5> place;
    std::array<int, 3> normal;

    bool operator==(const VertexKey&) const = default;
};

struct VertexKeyHash
{
    std::size_t operator()(const VertexKey& key) const
    {
        std::size_t hash = 0;
        for (const float coordinate : key.place)
            hash = hash * 1099511628211U + std::hash<float>()(coordinate);
        return hash ^ (hash >> 29);
    }
};

VertexKey key_of(const aiMesh& mesh, unsigned vertex)
{
    const aiVector3D& p = mesh.mVertices[vertex];
    const aiVector3D t = mesh.HasTextureCoords(0) ? mesh.mTextureCoords[0][vertex] : aiVector3D();
    const giVector3 n = mesh.HasNormals() ? usable_normal(mesh.mNormals[vertex]) : giVector3(0, 0, 1);
    const auto rounded = [](double x) { return static_cast<int>(std::lround(x * 1e5)); };
    return {{p.x, p.y, p.z, t.x, t.y}, {rounded(n.x()), rounded(n.y()), rounded(n.z())}};
}

// The node of each vertex; first_vertices gets one vertex of each node. The importer's own joining works to a fixed
// length, in which the detail of a part in metres is lost.
std::vector<int> join_vertices(const aiMesh& mesh, std::vector<unsigned>& first_vertices)
{
    std::unordered_map<VertexKey, int, VertexKeyHash> nodes;
    nodes.reserve(mesh.mNumVertices / 4);
    std::vector<int> node_of(mesh.mNumVertices);
    for (unsigned i = 0; i < mesh.mNumVertices; ++i)
    {
        const auto [place, is_new] = nodes.try_emplace(key_of(mesh, i), static_cast<int>(first_vertices.size()));
        if (is_new)
            first_vertices.push_back(i);
        node_of[i] = place->second;
    }
    return node_of;
}

std::unique_ptr<giTriBlock> block_of(const aiMesh& mesh)
{
    std::vector<unsigned> vertices;
    const std::vector<int> node_of = join_vertices(mesh, vertices);

    auto block = std::make_unique<giTriBlock>();
    std::vector<giPoint3> nodes;
    nodes.reserve(vertices.size());
    for (const unsigned i : vertices)
        nodes.push_back(giPoint3(mesh.mVertices[i].x, mesh.mVertices[i].y, mesh.mVertices[i].z));
    block->nodes() = giBoxArrPoint3(std::move(nodes));

    block->triangles().reserve(mesh.mNumFaces);
    for (unsigned i = 0; i < mesh.mNumFaces; ++i)
    {
        const unsigned* face = mesh.mFaces[i].mIndices;
        block->triangles().push_back(giTriangle(node_of[face[0]], node_of[face[1]], node_of[face[2]]));
    }
    std::vector<giVector3>& normals = block->create_normals();
    for (std::size_t node = 0; node < vertices.size(); ++node)
        normals[node] = mesh.HasNormals() ? usable_normal(mesh.mNormals[vertices[node]]) : giVector3(0, 0, 1);
    if (mesh.HasTextureCoords(0))
    {
        std::vector<giPoint2>& texture = block->create_texture_coordinates();
        for (std::size_t node = 0; node < vertices.size(); ++node)
        {
            const aiVector3D& place = mesh.mTextureCoords[0][vertices[node]];
            texture[node] = giPoint2(place.x, place.y);
        }
    }
    return block;
}

// The values of an array at the corners of the faces; frees the array.
aiVector3D* spread(const aiVector3D* values, const std::vector<unsigned>& corners)
{
    auto* const spread_values = new aiVector3D[corners.size()];
    std::transform(corners.begin(), corners.end(), spread_values, [values](unsigned i) { return values[i]; });
    delete[] values;
    return spread_values;
}

// Gives each corner of each face a vertex of its own: faces that share vertices would share normals, sharp edges or
// not.
void separate_faces(aiMesh& mesh)
{
    std::vector<unsigned> corners;
    for (unsigned i = 0; i < mesh.mNumFaces; ++i)
        for (unsigned j = 0; j < mesh.mFaces[i].mNumIndices; ++j)
        {
            corners.push_back(mesh.mFaces[i].mIndices[j]);
            mesh.mFaces[i].mIndices[j] = static_cast<unsigned>(corners.size() - 1);
        }
    mesh.mVertices = spread(mesh.mVertices, corners);
    for (aiVector3D*& coordinates : mesh.mTextureCoords)
        if (coordinates)
            coordinates = spread(coordinates, corners);
    mesh.mNumVertices = static_cast<unsigned>(corners.size());
}

}

int ms_import(const std::string& file, const std::string& kind, const giAngle& crease, ms_blocks& blocks,
              std::string& error, const ms_progress& progress)
{
    Assimp::Importer importer;
    importer.SetIOHandler(new plain_files); // the importer owns both
    importer.SetProgressHandler(new progress_teller(progress));
    // Points and lines are dropped, and triangles that use a node twice; those that are merely small stay.
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    importer.SetPropertyBool(AI_CONFIG_PP_FD_REMOVE, true);
    importer.SetPropertyBool(AI_CONFIG_PP_FD_CHECKAREA, false);
    importer.SetPropertyBool(AI_CONFIG_PP_PTV_KEEP_HIERARCHY, true); // or meshes of one material become one
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, static_cast<float>(crease.degrees()));
    int removed = aiComponent_COLORS | aiComponent_TANGENTS_AND_BITANGENTS | aiComponent_BONEWEIGHTS |
                  aiComponent_ANIMATIONS | aiComponent_LIGHTS | aiComponent_CAMERAS;
    if (kind == "stl")
        removed |= aiComponent_NORMALS; // one a facet, and not always right
    importer.SetPropertyInteger(AI_CONFIG_PP_RVC_FLAGS, removed);

    std::string fault;
    const listening indices(fault);
    const aiScene* scene = importer.ReadFile(file, 0);
    if (scene && fault.empty())
        fault = fault_of(*scene);
    if (scene && fault.empty())
        scene = importer.ApplyPostProcessing(aiProcess_RemoveComponent | aiProcess_SortByPType);
    if (scene && fault.empty())
    {
        for (unsigned i = 0; i < scene->mNumMeshes; ++i)
            if (!scene->mMeshes[i]->HasNormals())
                separate_faces(*scene->mMeshes[i]);
        scene = importer.ApplyPostProcessing(aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_FindDegenerates |
                                             aiProcess_GenSmoothNormals | aiProcess_PreTransformVertices);
        fault = scene ? fault_of(*scene) : "";
    }
    if (!scene)
    {
        const std::string_view said = importer.GetErrorString();
        fault = said.find("bad_alloc") == std::string_view::npos ? fl_printable(said) : ms_no_memory;
    }
    if (!fault.empty())
    {
        error = fault;
        return 0;
    }
    ms_blocks read;
    for (unsigned i = 0; i < scene->mNumMeshes; ++i)
        if (scene->mMeshes[i]->mNumFaces > 0)
            read.push_back(block_of(*scene->mMeshes[i]));
    if (read.empty())
    {
        error = "the file holds no triangles";
        return 0;
    }
    std::move(read.begin(), read.end(), std::back_inserter(blocks));
    return 1;
}
