#include "msImport.h"

#include "msLimits.h"
#include "msPlainObj.h"

#include "flMessages.h"
#include "flPath.h"

#include <assimp/DefaultIOSystem.h>
#include <assimp/DefaultLogger.hpp>
#include <assimp/Importer.hpp>
#include <assimp/LogStream.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string_view>
#include <system_error>

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
        // Reading is the first half of what importers tell, and nearly all of what is done.
        if (the_progress && share >= 0)
            the_progress(std::min(2.0 * share, 1.0));
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
        return std::filesystem::is_regular_file(fl_path(file), failure);
    }
    Assimp::IOStream* Open(const char* file, const char* mode) override
    {
        std::error_code failure;
        if (!Exists(file))
            return nullptr;
        ms_allow_file(static_cast<double>(std::filesystem::file_size(fl_path(file), failure)));
        return DefaultIOSystem::Open(fl_name_of(fl_path(file)).c_str(), mode);
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

// Says which mesh has what is wrong; empty when nothing is.
template <class Fault>
std::string fault_of(const aiScene& scene, const Fault& fault)
{
    for (unsigned i = 0; i < scene.mNumMeshes; ++i)
        if (const std::string found = fault(*scene.mMeshes[i]); !found.empty())
            return "mesh " + std::to_string(i + 1) + " has " + found;
    return {};
}

// Importers check little.
std::string value_fault(const aiMesh& mesh)
{
    if (!finite(mesh.mVertices, mesh.mNumVertices))
        return "nodes at places that are not finite, or too large for single precision";
    if (mesh.HasTextureCoords(0) && !finite(mesh.mTextureCoords[0], mesh.mNumVertices))
        return "texture coordinates that are not finite";
    return {};
}

// What further steps of the importer would trip over.
std::string face_fault(const aiMesh& mesh)
{
    for (unsigned i = 0; i < mesh.mNumFaces; ++i)
    {
        const aiFace& face = mesh.mFaces[i];
        if (face.mNumIndices > most_corners)
            return "a face with " + std::to_string(face.mNumIndices) + " corners, more than " +
                   std::to_string(most_corners);
        for (unsigned k = 0; k < face.mNumIndices; ++k)
            if (face.mIndices[k] >= mesh.mNumVertices)
                return "a face with node " + std::to_string(face.mIndices[k]) + " of " +
                       std::to_string(mesh.mNumVertices);
    }
    return {};
}

// Whether the scene says where its meshes lie, or more than once.
bool is_placed(const aiScene& scene)
{
    std::vector<const aiNode*> nodes = {scene.mRootNode};
    unsigned n_meshes = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i)
    {
        if (!nodes[i]->mTransformation.IsIdentity())
            return true;
        n_meshes += nodes[i]->mNumMeshes;
        nodes.insert(nodes.end(), nodes[i]->mChildren, nodes[i]->mChildren + nodes[i]->mNumChildren);
    }
    return n_meshes != scene.mNumMeshes;
}

bool has_polygons(const aiScene& scene)
{
    for (unsigned i = 0; i < scene.mNumMeshes; ++i)
    {
        const aiMesh& mesh = *scene.mMeshes[i];
        if (std::any_of(mesh.mFaces, mesh.mFaces + mesh.mNumFaces,
                        [](const aiFace& face) { return face.mNumIndices > 3; }))
            return true;
    }
    return false;
}

bool read_all(const std::string& file, std::vector<char>& text)
{
    std::error_code failure;
    const auto size = std::filesystem::file_size(fl_path(file), failure);
    if (failure)
        return false;
    ms_allow_file(static_cast<double>(size));
    text.resize(size);
    std::ifstream stream(fl_path(file), std::ios::binary);
    return static_cast<bool>(stream.read(text.data(), static_cast<std::streamsize>(size)));
}

// The corners of the triangles, without points and lines.
std::vector<int> corners_of(const aiMesh& mesh)
{
    std::vector<int> corners;
    corners.reserve(3 * static_cast<std::size_t>(mesh.mNumFaces));
    for (unsigned i = 0; i < mesh.mNumFaces; ++i)
        if (mesh.mFaces[i].mNumIndices == 3)
            corners.insert(corners.end(), mesh.mFaces[i].mIndices, mesh.mFaces[i].mIndices + 3);
    return corners;
}
}

int ms_import(const std::string& file, const std::string& kind, const std::function<void(const msMesh&)>& receive,
              std::string& error, const ms_progress& progress)
{
    if (std::vector<char> text; kind == "obj" && read_all(file, text) && ms_is_plain_obj(text))
        return ms_import_plain_obj(text, receive, error, progress);
    Assimp::Importer importer;
    importer.SetIOHandler(new plain_files); // the importer owns both
    importer.SetProgressHandler(new progress_teller(progress));
    importer.SetPropertyBool(AI_CONFIG_PP_PTV_KEEP_HIERARCHY, true); // or meshes of one material become one

    std::string fault;
    const listening indices(fault);
    const aiScene* scene = importer.ReadFile(file, 0);
    if (scene && fault.empty())
        fault = fault_of(*scene, value_fault);
    unsigned further = 0; // steps of the importer
    if (scene && fault.empty() && is_placed(*scene))
        further |= aiProcess_PreTransformVertices;
    if (scene && fault.empty() && has_polygons(*scene))
        further |= aiProcess_Triangulate;
    if (further)
        fault = fault_of(*scene, face_fault);
    if (further && fault.empty())
    {
        scene = importer.ApplyPostProcessing(further);
        fault = scene ? fault_of(*scene, value_fault) : "";
    }
    if (!scene)
    {
        const std::string_view said = importer.GetErrorString();
        fault = said.find("bad_alloc") == std::string_view::npos ? fl_printable(said) : ms_no_memory;
    }
    for (unsigned i = 0; fault.empty() && i < scene->mNumMeshes; ++i)
    {
        const aiMesh& mesh = *scene->mMeshes[i];
        static_assert(sizeof(aiVector3D) == 3 * sizeof(float));
        const auto numbers = [](const aiVector3D* values) { return reinterpret_cast<const float*>(values); };
        // STL has one normal a facet, and not always right.
        receive({static_cast<int>(i + 1), static_cast<int>(mesh.mNumVertices), static_cast<int>(mesh.mNumFaces),
                 numbers(mesh.mVertices), mesh.HasNormals() && kind != "stl" ? numbers(mesh.mNormals) : nullptr,
                 mesh.HasTextureCoords(0) ? numbers(mesh.mTextureCoords[0]) : nullptr,
                 [&mesh] { return corners_of(mesh); }});
    }
    error = fault;
    return fault.empty();
}
