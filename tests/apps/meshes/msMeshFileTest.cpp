#include "msMeshFile.h"
#include "msTarnFile.h"

#include "giAngleDegrees.h"
#include "spPart.h"
#include "tsFolder.h"

#include <assimp/Exporter.hpp>
#include <assimp/Importer.hpp>

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#if defined(__unix__)
#include <sys/stat.h>
#endif

namespace
{
const giAngleDegrees crease(30);

// Read successfully, or null.
ms_blocks read(const std::string& file)
{
    ms_blocks blocks;
    std::string error;
    EXPECT_TRUE(ms_read(file, crease, blocks, error)) << error;
    return blocks;
}

struct Sum
{
    int triangles = 0;
    int turned = 0; // triangles that do not agree with their normals
    giBox3 box;
};

Sum sum(const ms_blocks& blocks)
{
    Sum sum;
    for (const auto& block : blocks)
    {
        sum.triangles += block->triangle_count();
        sum.box.merge(block->box());
        for (const giTriangle& t : block->triangles())
        {
            const giPoint3& p = block->nodes()[t[0]];
            const giVector3 area = (block->nodes()[t[1]] - p).cross(block->nodes()[t[2]] - p);
            sum.turned += area.unit().dot((*block->normals())[static_cast<std::size_t>(t[0])]) < 0.8;
        }
    }
    return sum;
}

// A format that we read and do not write.
void write_off(const ms_blocks& blocks, const std::string& file)
{
    std::ostringstream nodes, faces;
    int n_nodes = 0, n_faces = 0;
    for (const auto& block : blocks)
    {
        for (int i = 0; i < block->node_count(); ++i)
            nodes << block->nodes()[i].x() << ' ' << block->nodes()[i].y() << ' ' << block->nodes()[i].z() << '\n';
        for (const giTriangle& t : block->triangles())
            faces << "3 " << n_nodes + t[0] << ' ' << n_nodes + t[1] << ' ' << n_nodes + t[2] << '\n';
        n_nodes += block->node_count();
        n_faces += block->triangle_count();
    }
    std::ofstream(file) << "OFF\n" << n_nodes << ' ' << n_faces << " 0\n" << nodes.str() << faces.str();
}

// Four corners of a square, and a face.
std::string ply(const std::string& face, const std::string& faces = "1", const std::string& corners = "4")
{
    return "ply\nformat ascii 1.0\nelement vertex " + corners +
           "\nproperty float x\nproperty float y\nproperty float z\nelement face " + faces +
           "\nproperty list int int vertex_indices\nend_header\n0 0 0\n1 0 0\n1 1 0\n0 1 0\n" + face + "\n";
}

// A face of more corners than are parted into triangles in a sensible time.
std::string endless_face()
{
    std::string face = "20000";
    for (int i = 0; i < 20000; ++i)
        face += " " + std::to_string(i % 4);
    return ply(face);
}

// A cube of 4 micrometres, in metres; its faces share their corners.
const char* const cube_off = "OFF\n8 6 0\n0 0 0\n4e-6 0 0\n4e-6 4e-6 0\n0 4e-6 0\n0 0 4e-6\n4e-6 0 4e-6\n"
                             "4e-6 4e-6 4e-6\n0 4e-6 4e-6\n4 3 2 1 0\n4 4 5 6 7\n4 0 1 5 4\n4 1 2 6 5\n4 2 3 7 6\n"
                             "4 3 0 4 7\n";
// Two triangles that share an edge, 0.2 degrees apart and 90 degrees.
const char* const flat_obj = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0.003\nf 1 2 3\nf 2 4 3\n";
const char* const bent_obj = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 2\n";
}

TEST(msMeshFile, every_format_brings_back_what_was_written)
{
    const tsFolder folder;
    const ms_blocks part = sp_make_part(20000);
    const Sum expected = sum(part);
    std::string error;
    for (const char* name : {"part.stl", "part.obj", "part.ply", "part.glb", "part.dae"})
        EXPECT_TRUE(ms_write(folder / name, part, error)) << error;
    Assimp::Importer importer;
    const aiScene* scene = importer.ReadFile(folder / "part.obj", 0);
    for (const auto& [format, name] : {std::pair("gltf2", "part.gltf"), std::pair("3mf", "part.3mf")})
        EXPECT_EQ(Assimp::Exporter().Export(scene, format, folder / name), aiReturn_SUCCESS) << name;
    write_off(part, folder / "part.off");
    std::istringstream endings(ms_readable_endings());
    for (std::string ending; std::getline(endings >> std::ws, ending, ',');)
    {
        const ms_blocks back = read(folder / ("part." + ending));
        const Sum read = sum(back);
        EXPECT_EQ(read.triangles, expected.triangles) << ending;
        EXPECT_EQ(read.turned, 0) << ending;
        EXPECT_TRUE(read.box.low().coincident(expected.box.low(), 1e-4)) << ending;
        EXPECT_TRUE(read.box.high().coincident(expected.box.high(), 1e-4)) << ending;
        const bool parted = ending == "obj" || ending == "glb" || ending == "dae";
        EXPECT_GE(back.size(), parted ? part.size() : 1) << ending;
        const bool textured = ending != "stl" && ending != "off" && ending != "3mf";
        EXPECT_EQ(!back.empty() && back[0]->texture_coordinates(), textured) << ending;
    }
}

TEST(msMeshFile, obj_files_of_triangles_read_as_others_do)
{
    const tsFolder folder;
    std::string error;
    ASSERT_TRUE(ms_write(folder / "part.obj", sp_make_part(20000), error)) << error;
    const std::string materials = "v 0 0 0\nv 1 0 0\nv 0.5 1.25 -3.25\nvt 0.5 1\nusemtl a\n"
                                  "f 1/1 2/1 3/1\nusemtl b\nf 2/1 1/1 3/1\n";
    for (const std::string& text : {folder.text("part.obj"), materials})
    {
        const ms_blocks plain = read(folder.write("plain.obj", text));
        const ms_blocks other = read(folder.write("other.obj", text + "\nl 1 2\n"));
        ASSERT_EQ(plain.size(), other.size());
        for (std::size_t i = 0; i < plain.size(); ++i)
        {
            EXPECT_EQ(plain[i]->node_count(), other[i]->node_count());
            EXPECT_EQ(plain[i]->triangle_count(), other[i]->triangle_count());
            EXPECT_EQ(plain[i]->box(), other[i]->box());
            EXPECT_EQ(!plain[i]->texture_coordinates(), !other[i]->texture_coordinates());
        }
        EXPECT_EQ(sum(plain).turned, 0);
    }
}

TEST(msMeshFile, nodes_are_shared_where_normals_agree)
{
    const tsFolder folder;
    const struct
    {
        const char *name, *text;
        int nodes, triangles;
        double high_x;
    } rows[] = {{"small ж𝄞.off", cube_off, 24, 12, 4e-6},
                {"flat.obj", flat_obj, 4, 2, 1},
                {"ends ж𝄞.obj", "v 0 0 0\r\nv 1e+0 .0 0\r\nv 0 1 0\r\nv 1 1 3E-3\r\nf 1 2 3\r\nf 2 4 3", 4, 2, 1},
                {"bent.obj", bent_obj, 6, 2, 1}};
    for (const auto& row : rows)
    {
        const ms_blocks blocks = read(folder.write(row.name, row.text));
        ASSERT_EQ(blocks.size(), 1u) << row.name;
        EXPECT_EQ(blocks[0]->node_count(), row.nodes) << row.name;
        EXPECT_EQ(sum(blocks).triangles, row.triangles) << row.name;
        EXPECT_EQ(sum(blocks).turned, 0) << row.name;
        EXPECT_NEAR(blocks[0]->box().high().x(), row.high_x, 1e-6 * row.high_x) << row.name;
    }
}

TEST(msMeshFile, nothing_in_a_file_is_trusted)
{
    const tsFolder folder;
    const struct
    {
        const char* name;
        std::string text;
        const char* complaint;
    } rows[] = {
        {"index.ply", ply("3 0 1 9"), "mesh 1 has a face with node 9 of 4"},
        {"faces.ply", ply("3 0 1 2", "1000000000"), "more memory than a file of its size"},
        {"nodes.ply", ply("3 0 1 2", "1", "1000000000"), "more memory than a file of its size"},
        {"corners.ply", endless_face(), "a face with 20000 corners, more than 10000"},
        {"index.off", "OFF\n3 1 0\n0 0 0\n1 0 0\n0 1 0\n3 0 1 7\n", "nodes that it does not have"},
        {"index.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 4\n", "nodes that it does not have"},
        {"word.obj", "v 0 0 0\nv 1 0 x\nv 0 1 0\nf 1 2 3\n", "word.obj: "},
        {"nan.obj", "v 0 0 0\nv 1 0 0\nv nan 1 0\nf 1 2 3\n", "not finite"},
        {"far.obj", "v 0 0 0\nv 1 0 0\nv 1e39 1 0\nf 1 2 3\n", "not finite, or too large"},
        {"none.obj", "v 0 0 0\n", "none.obj: "},
        {"other.blend", "BLENDER", "other.blend: no mesh format has this ending; stl, obj"},
        {".", "", "folder"},
    };
    for (const auto& row : rows)
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        if (std::string(row.complaint).starts_with("more memory"))
            continue; // the sanitizer's own limits answer in their own words
#endif
        ms_blocks blocks;
        std::string error;
        folder.write(row.name, row.text);
        EXPECT_FALSE(ms_read(folder / row.name, crease, blocks, error)) << row.name;
        EXPECT_NE(error.find(row.complaint), std::string::npos) << error;
        EXPECT_TRUE(blocks.empty()) << row.name;
    }
}

#if defined(__unix__)
TEST(msMeshFile, materials_that_are_a_pipe_are_not_waited_for)
{
    const tsFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe.mtl").c_str(), 0600), 0);
    EXPECT_EQ(read(folder.write("a.obj", std::string("mtllib pipe.mtl\n") + flat_obj)).size(), 1u);
}
#endif

TEST(msMeshFile, what_is_not_written_leaves_what_was_there)
{
    const tsFolder folder;
    folder.write("a.obj", "old");
    std::string error;
    EXPECT_FALSE(ms_write(folder / "a.obj", {}, error));
    EXPECT_NE(error.find("a.obj: there are no triangles"), std::string::npos) << error;
    EXPECT_FALSE(ms_write(folder / "a.blend", {}, error));
    EXPECT_NE(error.find("stl, obj, ply"), std::string::npos) << error;
    ms_blocks blocks;
    blocks.push_back(std::make_unique<giTriBlock>());
    blocks[0]->nodes().append(giPoint3(std::nan(""), 0, 0));
    EXPECT_FALSE(ms_write_tarn(folder / "a.obj", blocks, error));
    EXPECT_NE(error.find("not finite"), std::string::npos) << error;
    EXPECT_EQ(folder.names() + folder.text("a.obj"), "a.objold");
}
