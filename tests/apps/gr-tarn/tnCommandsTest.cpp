#include "tarnCommands.h"

namespace fs = std::filesystem;

namespace
{
// Two triangles that share an edge, 0.2 degrees apart in one file and 90 degrees in the other; no normals.
const char* const flat_obj = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0.003\nf 1 2 3\nf 2 4 3\n";
const char* const bent_obj = "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 2\n";

// A cube of 4 micrometres, in metres; its faces share their corners.
const char* const cube_ply = R"(ply
format ascii 1.0
element vertex 8
property float x
property float y
property float z
element face 6
property list uchar int vertex_indices
end_header
0 0 0
4e-6 0 0
4e-6 4e-6 0
0 4e-6 0
0 0 4e-6
4e-6 0 4e-6
4e-6 4e-6 4e-6
0 4e-6 4e-6
4 3 2 1 0
4 4 5 6 7
4 0 1 5 4
4 1 2 6 5
4 2 3 7 6
4 3 0 4 7
)";
}

TEST_F(gr_tarn, meshes_survive_the_way_there_and_back)
{
    ASSERT_EQ(run({"sample", "--triangles", "20000", file("part.tarn").c_str()}), 0) << the_errors.str();
    const tn_blocks part = blocks("part.tarn");
    int triangles = 0;
    giBox3 box;
    for (const auto& block : part)
    {
        triangles += block->triangle_count();
        box.merge(block->box());
    }
    const struct
    {
        const char *name, *back;
        std::size_t least_blocks;
        bool texture;
    } cases[] = {
        {"part.obj", "obj.tarn", 6, true}, {"part.ply", "ply.tarn", 1, true}, {"part.stl", "stl.tarn", 1, false}};
    for (const auto& c : cases)
    {
        ASSERT_EQ(run("export", file("part.tarn"), file(c.name)), 0) << the_errors.str();
        ASSERT_EQ(run("import", file(c.name), file(c.back)), 0) << the_errors.str();
        const tn_blocks back = blocks(c.back);
        EXPECT_GE(back.size(), c.least_blocks) << c.name;
        int triangles_back = 0, turned = 0;
        giBox3 box_back;
        for (const auto& block : back)
        {
            triangles_back += block->triangle_count();
            box_back.merge(block->box());
            EXPECT_EQ(block->texture_coordinates() != nullptr, c.texture) << c.name;
            for (const giTriangle& t : block->triangles())
            {
                const giPoint3& p = block->nodes()[t[0]];
                const giVector3 area = (block->nodes()[t[1]] - p).cross(block->nodes()[t[2]] - p);
                turned += area.unit().dot((*block->normals())[static_cast<std::size_t>(t[0])]) < 0.8;
            }
        }
        EXPECT_EQ(triangles_back, triangles) << c.name;
        EXPECT_EQ(turned, 0) << c.name;
        EXPECT_TRUE(box_back.low().coincident(box.low(), 1e-4)) << c.name;
        EXPECT_TRUE(box_back.high().coincident(box.high(), 1e-4)) << c.name;
    }
}

TEST_F(gr_tarn, small_parts_keep_every_triangle_and_shared_nodes_their_sharp_edges)
{
    write("cube.ply", cube_ply);
    ASSERT_EQ(run("import", file("cube.ply"), file("cube.tarn")), 0) << the_errors.str();
    const tn_blocks read = blocks("cube.tarn");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0]->triangle_count(), 12);
    EXPECT_EQ(read[0]->node_count(), 24);
    EXPECT_NEAR(read[0]->box().high().x(), 4e-6, 1e-12);
}

TEST_F(gr_tarn, normals_are_computed_where_absent_and_split_at_sharp_edges)
{
    const struct
    {
        const char *name, *text;
        int nodes;
    } cases[] = {{"flat", flat_obj, 4}, {"bent", bent_obj, 6}};
    for (const auto& c : cases)
    {
        write("mesh.obj", c.text);
        ASSERT_EQ(run("import", file("mesh.obj"), file("mesh.tarn")), 0) << the_errors.str();
        const tn_blocks read = blocks("mesh.tarn");
        ASSERT_EQ(read.size(), 1u);
        EXPECT_EQ(read[0]->node_count(), c.nodes) << c.name;
        ASSERT_TRUE(read[0]->normals());
        EXPECT_NEAR((*read[0]->normals())[static_cast<std::size_t>(read[0]->triangles()[0][0])].z(), 1, 1e-3);
    }
}

TEST_F(gr_tarn, info_lists_blocks_and_their_sum)
{
    write("two.tarn",
          "*\n2\n1 2\n\n\n\n1 1 3 1 0\n\n\n\n\n\n\n\n\n0 0 0 0 0 1 0 0\n7 0 0 0 0 1 0 0\n0 8 9 0 0 1 0 0\n1 2 3\n"
          "\n\n\n0 0 1 0 0\n\n\n\n\n\n\n\n\n-5 0 0 0 0 1 0 0\n");
    ASSERT_EQ(run({"info", file("two.tarn").c_str()}), 0) << the_errors.str();
    std::istringstream lines(the_out.str());
    std::vector<std::vector<std::string>> words;
    for (std::string line, word; std::getline(lines, line);)
    {
        words.emplace_back();
        for (std::istringstream stream(line); stream >> word;)
            words.back().push_back(word);
    }
    using row = std::vector<std::string>;
    ASSERT_EQ(words.size(), 4u) << the_out.str();
    EXPECT_EQ(words[1], (row{"1", "3", "1", "normals", "yes", "0", "0", "0", "to", "7", "8", "9"}));
    EXPECT_EQ(words[2], (row{"2", "1", "0", "curvatures", "no", "-5", "0", "0", "to", "-5", "0", "0"}));
    EXPECT_EQ(words[3], (row{"all", "4", "1", "-5", "0", "0", "to", "7", "8", "9"}));
}

TEST_F(gr_tarn, complaints_name_the_file_and_leave_what_was_there)
{
    write("good.obj", flat_obj);
    write("bad.obj", "this is no mesh\n");
    write("bad.tarn", "*\n1\n1\n");
    write("kept.tarn", "kept");
    const std::string missing = file("missing"), bad_obj = file("bad.obj"), bad_tarn = file("bad.tarn"),
                      good = file("good.obj"), kept = file("kept.tarn"), no_folder = file("none/out.tarn"),
                      unknown = file("out.unknown");
    const struct
    {
        const char* name;
        std::vector<const char*> words;
        int status;
        std::string named;
    } cases[] = {
        {"missing tarn file", {"info", missing.c_str()}, 1, missing},
        {"damaged tarn file", {"info", bad_tarn.c_str()}, 1, bad_tarn},
        {"damaged tarn file for export", {"export", bad_tarn.c_str(), good.c_str()}, 1, bad_tarn},
        {"missing mesh", {"import", missing.c_str(), kept.c_str()}, 1, missing},
        {"damaged mesh", {"import", bad_obj.c_str(), kept.c_str()}, 1, bad_obj},
        {"no such folder", {"import", good.c_str(), no_folder.c_str()}, 1, no_folder},
        {"unknown format", {"export", bad_tarn.c_str(), unknown.c_str()}, 1, unknown},
        {"no command", {}, 2, ""},
        {"unknown command", {"convert"}, 2, ""},
        {"unknown option", {"info", "--fast", bad_tarn.c_str()}, 2, "--fast"},
        {"number out of range", {"sample", "--triangles", "0", kept.c_str()}, 2, "--triangles"},
    };
    for (const auto& c : cases)
    {
        EXPECT_EQ(run(c.words), c.status) << c.name;
        EXPECT_FALSE(the_errors.str().empty()) << c.name;
        EXPECT_NE(the_errors.str().find(c.named), std::string::npos) << c.name << ": " << the_errors.str();
        EXPECT_EQ(the_out.str(), "") << c.name;
    }
    std::string text;
    std::ifstream(kept) >> text;
    EXPECT_EQ(text, "kept");
    EXPECT_FALSE(fs::exists(kept + ".part"));
}

TEST(tnProgress, draws_changes_alone_and_wipes_itself_away)
{
    std::ostringstream terminal;
    {
        tnProgress bar(&terminal, "reading");
        bar.show(0.5);
        const std::string half = terminal.str();
        EXPECT_NE(half.find("[####################                    ] 50%"), std::string::npos) << half;
        bar.show(0.5001);
        EXPECT_EQ(terminal.str(), half);
        bar.show(7);
        EXPECT_NE(terminal.str().find("100%"), std::string::npos);
    }
    const std::string all = terminal.str();
    const std::size_t last_line = all.rfind('\r', all.size() - 2);
    EXPECT_EQ(all.find_first_not_of(" \r", last_line), std::string::npos) << "the line is left blank";
}
