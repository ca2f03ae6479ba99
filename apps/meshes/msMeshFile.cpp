#include "msMeshFile.h"

#include "giAngle.h"
#include "giTriBlock.h"

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <filesystem>
#include <functional>
#include <iterator>
#include <system_error>
#include <unordered_map>

namespace
{
// The ending of a name in small letters, without the dot.
std::string ending(const std::string& file)
{
    std::string found = std::filesystem::path(file).extension().string();
    std::transform(found.begin(), found.end(), found.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return found.empty() ? found : found.substr(1);
}

// The exporter's name for the format of an ending; empty when there is none.
std::string format_of(const std::string& kind)
{
    if (kind == "stl" || kind == "ply")
        return kind + "b";
    if (kind == "obj")
        return "objnomtl";
    Assimp::Exporter exporter;
    for (std::size_t i = 0; i < exporter.GetExportFormatCount(); ++i)
        if (kind == exporter.GetExportFormatDescription(i)->fileExtension)
            return exporter.GetExportFormatDescription(i)->id;
    return {};
}

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

aiVector3D vector_of(double x, double y, double z)
{
    return aiVector3D(static_cast<ai_real>(x), static_cast<ai_real>(y), static_cast<ai_real>(z));
}

// The scene owns the mesh, the arrays belong to the mesh.
aiMesh* mesh_of(const giTriBlock& block)
{
    auto* mesh = new aiMesh;
    const auto nodes = static_cast<unsigned>(block.node_count());
    mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
    mesh->mNumVertices = nodes;
    mesh->mVertices = new aiVector3D[nodes];
    for (unsigned i = 0; i < nodes; ++i)
    {
        const giPoint3& p = block.nodes()[static_cast<int>(i)];
        mesh->mVertices[i] = vector_of(p.x(), p.y(), p.z());
    }
    if (block.normals())
    {
        mesh->mNormals = new aiVector3D[nodes];
        for (unsigned i = 0; i < nodes; ++i)
            mesh->mNormals[i] =
                vector_of((*block.normals())[i].x(), (*block.normals())[i].y(), (*block.normals())[i].z());
    }
    if (block.texture_coordinates())
    {
        mesh->mNumUVComponents[0] = 2;
        mesh->mTextureCoords[0] = new aiVector3D[nodes];
        for (unsigned i = 0; i < nodes; ++i)
            mesh->mTextureCoords[0][i] =
                vector_of((*block.texture_coordinates())[i].x(), (*block.texture_coordinates())[i].y(), 0);
    }
    mesh->mNumFaces = static_cast<unsigned>(block.triangle_count());
    mesh->mFaces = new aiFace[mesh->mNumFaces];
    for (unsigned i = 0; i < mesh->mNumFaces; ++i)
    {
        const giTriangle& triangle = block.triangles()[i];
        mesh->mFaces[i].mNumIndices = 3;
        mesh->mFaces[i].mIndices = new unsigned[3]{
            static_cast<unsigned>(triangle[0]), static_cast<unsigned>(triangle[1]), static_cast<unsigned>(triangle[2])};
    }
    return mesh;
}

std::unique_ptr<aiScene> scene_of(const std::vector<std::unique_ptr<giTriBlock>>& blocks)
{
    auto scene = std::make_unique<aiScene>();
    scene->mMaterials = new aiMaterial* [1] { new aiMaterial };
    scene->mNumMaterials = 1;
    scene->mRootNode = new aiNode;
    scene->mMeshes = new aiMesh*[blocks.size()];
    scene->mRootNode->mChildren = new aiNode*[blocks.size()];
    for (const auto& block : blocks)
    {
        if (block->triangle_count() == 0)
            continue;
        // A node of its own for each block: formats with groups then keep the blocks apart.
        const std::string name = "block_" + std::to_string(scene->mNumMeshes + 1);
        auto* node = new aiNode(name);
        node->mParent = scene->mRootNode;
        node->mMeshes = new unsigned[1]{scene->mNumMeshes};
        node->mNumMeshes = 1;
        scene->mRootNode->mChildren[scene->mRootNode->mNumChildren++] = node;
        scene->mMeshes[scene->mNumMeshes] = mesh_of(*block);
        scene->mMeshes[scene->mNumMeshes++]->mName = name;
    }
    return scene;
}
}

int ms_readable(const std::string& file)
{
    return !ending(file).empty() && Assimp::Importer().IsExtensionSupported("." + ending(file));
}

int ms_writable(const std::string& file)
{
    return !format_of(ending(file)).empty();
}

int ms_read(const std::string& file, const giAngle& crease, std::vector<std::unique_ptr<giTriBlock>>& blocks,
            std::string& error, const ms_progress& progress)
{
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(file, ignored))
    {
        error = file + ": there is no such file";
        return 0;
    }
    Assimp::Importer importer;
    importer.SetProgressHandler(new progress_teller(progress)); // the importer owns it
    // Points and lines are dropped, and triangles that use a node twice; those that are merely small stay.
    importer.SetPropertyInteger(AI_CONFIG_PP_SBP_REMOVE, aiPrimitiveType_POINT | aiPrimitiveType_LINE);
    importer.SetPropertyBool(AI_CONFIG_PP_FD_REMOVE, true);
    importer.SetPropertyBool(AI_CONFIG_PP_FD_CHECKAREA, false);
    importer.SetPropertyBool(AI_CONFIG_PP_PTV_KEEP_HIERARCHY, true); // or meshes of one material become one
    importer.SetPropertyFloat(AI_CONFIG_PP_GSN_MAX_SMOOTHING_ANGLE, static_cast<float>(crease.degrees()));
    int removed = aiComponent_COLORS | aiComponent_TANGENTS_AND_BITANGENTS | aiComponent_BONEWEIGHTS |
                  aiComponent_ANIMATIONS | aiComponent_LIGHTS | aiComponent_CAMERAS;
    if (ending(file) == "stl")
        removed |= aiComponent_NORMALS; // one a facet, and not always right
    importer.SetPropertyInteger(AI_CONFIG_PP_RVC_FLAGS, removed);

    const aiScene* scene = importer.ReadFile(file, aiProcess_RemoveComponent | aiProcess_SortByPType);
    if (scene)
    {
        for (unsigned i = 0; i < scene->mNumMeshes; ++i)
            if (!scene->mMeshes[i]->HasNormals())
                separate_faces(*scene->mMeshes[i]);
        scene = importer.ApplyPostProcessing(aiProcess_Triangulate | aiProcess_SortByPType | aiProcess_FindDegenerates |
                                             aiProcess_GenSmoothNormals | aiProcess_PreTransformVertices);
    }
    if (!scene)
    {
        error = file + ": " + importer.GetErrorString();
        return 0;
    }
    std::vector<std::unique_ptr<giTriBlock>> read;
    for (unsigned i = 0; i < scene->mNumMeshes; ++i)
        if (scene->mMeshes[i]->mNumFaces > 0)
            read.push_back(block_of(*scene->mMeshes[i]));
    if (read.empty())
    {
        error = file + ": the file holds no triangles";
        return 0;
    }
    std::move(read.begin(), read.end(), std::back_inserter(blocks));
    return 1;
}

int ms_write(const std::string& file, const std::vector<std::unique_ptr<giTriBlock>>& blocks, std::string& error)
{
    const std::string format = format_of(ending(file));
    if (format.empty())
    {
        error = file + ": no mesh format has this ending";
        return 0;
    }
    const std::unique_ptr<aiScene> scene = scene_of(blocks);
    if (scene->mNumMeshes == 0)
    {
        error = file + ": there are no triangles to write";
        return 0;
    }
    const std::string unfinished = file + ".part";
    Assimp::Exporter exporter;
    std::error_code failure;
    if (exporter.Export(scene.get(), format, unfinished) != aiReturn_SUCCESS)
    {
        error = file + ": " + exporter.GetErrorString();
        std::filesystem::remove(unfinished, failure);
        return 0;
    }
    std::filesystem::rename(unfinished, file, failure);
    if (failure)
    {
        error = file + ": " + failure.message();
        return 0;
    }
    return 1;
}
