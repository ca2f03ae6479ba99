#include "tarnCommands.h"
#include "tsTable.h"

TEST_F(gr_tarn, meshes_are_imported_and_exported)
{
    the_folder.write("two.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nv 0 0 1\nf 1 2 3\nf 1 4 2\n"); // 90 degrees apart
    ASSERT_EQ(run("import @two.obj @sharp.tarn"), 0) << the_errors.str();
    ASSERT_EQ(run("import @two.obj @round.tarn --crease 100"), 0) << the_errors.str();
    EXPECT_EQ(blocks("sharp.tarn")[0]->node_count(), 6);
    EXPECT_EQ(blocks("round.tarn")[0]->node_count(), 4);
    ASSERT_EQ(run("export @sharp.tarn @back.stl"), 0) << the_errors.str();
    EXPECT_EQ(the_folder.text("back.stl").size(), 84u + 2 * 50) << "binary STL";
}

TEST_F(gr_tarn, info_lists_blocks_and_their_sum)
{
    the_folder.write(
        "two.tarn",
        "*\n2\n1 2\n\n\n\n1 1 3 1 0\n\n\n\n\n\n\n\n\n0 0 0 0 0 1 0 0\n7 0 0 0 0 1 0 0\n0 8 9 0 0 1 0 0\n1 2 3\n"
        "\n\n\n0 0 1 0 0\n\n\n\n\n\n\n\n\n-5 0 0 0 0 1 0 0\n");
    ASSERT_EQ(run("info @two.tarn"), 0) << the_errors.str();
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

TEST_F(gr_tarn, complaints_name_what_is_wrong_and_leave_what_was_there)
{
    the_folder.write("good.obj", "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    the_folder.write("bad.obj", "this is no mesh\n");
    the_folder.write("bad.tarn", "*\n1\n1\n");
    the_folder.write("kept.tarn", "kept");
    ASSERT_EQ(run("import @good.obj @part.tarn"), 0);
    const std::string names = the_folder.names();
    for (const auto& row : ts_table(TS_TABLES "complaints.table", "complaints"))
    {
        EXPECT_EQ(run(row[0]), std::stoi(row[1])) << row[0];
        EXPECT_NE(the_errors.str().find(row[2]), std::string::npos) << row[0] << "\n" << the_errors.str();
        EXPECT_EQ(the_out.str(), "") << row[0];
        EXPECT_EQ(the_folder.names(), names) << row[0];
        EXPECT_EQ(the_folder.text("kept.tarn"), "kept") << row[0];
    }
}
