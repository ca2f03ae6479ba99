#include "msExport.h"

#include "flMessages.h"

#include <assimp/Exporter.hpp>
#include <assimp/scene.h>

#include <memory>
#include <ostream>

namespace
{
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

std::unique_ptr<aiScene> scene_of(const ms_blocks& blocks)
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

int ms_export(const ms_blocks& blocks, const std::string& format, std::ostream& os, std::string& error)
{
    const std::unique_ptr<aiScene> scene = scene_of(blocks);
    if (scene->mNumMeshes == 0)
    {
        error = "there are no triangles to write";
        return 0;
    }
    Assimp::Exporter exporter;
    const aiExportDataBlob* blob = exporter.ExportToBlob(scene.get(), format);
    if (!blob)
    {
        error = fl_printable(exporter.GetErrorString());
        return 0;
    }
    os.write(static_cast<const char*>(blob->data), static_cast<std::streamsize>(blob->size));
    return 1;
}
