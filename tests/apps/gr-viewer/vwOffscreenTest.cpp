#include "vwOffscreen.h"

#include "vwModel.h"
#include "vwOptions.h"
#include "vwReport.h"

#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace
{
const std::string tetrahedron = VW_TEST_DATA "/tetrahedron.tarn";

vwOptions options_for(const std::string& file, const std::string& session, const std::string& out)
{
    vwOptions options;
    options.files = {file};
    options.play = session;
    options.out = out;
    options.offscreen = 1;
    return options;
}

const std::string short_session =
    "gr-session 1\nsize 64 48\n0 picture a\n0.1 press qwerty_key 73 30 20\n0.2 picture b\n";
}

TEST(vwOffscreen, playing_writes_the_pictures_and_a_page_that_shows_them)
{
    const tsFolder folder;
    const vwOptions options = options_for(tetrahedron, folder.write("s.session", short_session), folder / "new/out");
    std::ostringstream messages;
    std::string error;
    ASSERT_EQ(vw_play_offscreen(options, messages, error), 1) << error;
    EXPECT_NE(messages.str().find("2 pictures"), std::string::npos) << messages.str();
    EXPECT_EQ(folder.text("new/out/a.png").substr(1, 3), "PNG");
    EXPECT_EQ(folder.text("new/out/b.png").substr(1, 3), "PNG");
    const std::string page = folder.text("new/out/index.html");
    for (const char* part : {"src=\"a.png\"", "src=\"b.png\"", "<svg", "tetrahedron.tarn: 1 blocks, 4 triangles"})
        EXPECT_NE(page.find(part), std::string::npos) << part;
}

TEST(vwOffscreen, a_picture_needs_no_session)
{
    const tsFolder folder;
    vwOptions options = options_for(tetrahedron, "", "");
    options.output = folder / "p.png";
    options.width = 40;
    options.height = 30;
    std::ostringstream messages;
    std::string error;
    ASSERT_EQ(vw_play_offscreen(options, messages, error), 1) << error;
    EXPECT_EQ(folder.names(), "p.png");
    EXPECT_EQ(folder.text("p.png").substr(12, 12), std::string("IHDR\0\0\0\x28\0\0\0\x1e", 12)) << "its size";
    options.output = folder / "none/p.png";
    EXPECT_EQ(vw_play_offscreen(options, messages, error), 0);
    EXPECT_NE(error.find("none/p.png"), std::string::npos) << error;
}

TEST(vwOffscreen, what_is_wrong_is_named_and_nothing_is_written)
{
    const tsFolder folder;
    const std::string session = folder.write("s.session", short_session);
    const struct
    {
        const char* name;
        std::string file, session, named;
    } cases[] = {
        {"missing model", folder / "no.tarn", session, "no.tarn: there is no such file"},
        {"model that is a folder", folder / "", session, "this is a folder"},
        {"model that is something else", folder.write("x.tarn", "hello\n"), session, "x.tarn: this is no tarn file"},
        {"tarn file without blocks", folder.write("z.tarn", "*\n0\n"), session,
         "z.tarn: the tarn file holds no blocks"},
        {"model too large to be drawn", folder.write("far.obj", "v 0 0 0\nv 1e20 0 0\nv 0 1 0\nf 1 2 3\n"), session,
         "far.obj: it cannot be shown"},
        {"missing mesh", folder / "no.stl", session, "no.stl"},
        {"damaged mesh", folder.write("bad.ply", "ply\nformat"), session, "bad.ply"},
        {"missing session", tetrahedron, folder / "no.session", "no.session: there is no such file"},
        {"damaged session", tetrahedron, folder.write("t.session", "gr-session 1\n0 fly\n"), "t.session: line 2"},
    };
    for (const auto& c : cases)
    {
        std::ostringstream messages;
        std::string error;
        EXPECT_EQ(vw_play_offscreen(options_for(c.file, c.session, folder / "out"), messages, error), 0) << c.name;
        EXPECT_NE(error.find(c.named), std::string::npos) << c.name << ": " << error;
        EXPECT_FALSE(std::filesystem::exists(folder / "out")) << c.name;
    }
}

TEST(vwOffscreen, what_is_read_is_not_written_over)
{
    const tsFolder folder;
    const std::string session = folder.write("a.png", short_session);
    std::ostringstream messages;
    std::string error;
    EXPECT_EQ(vw_play_offscreen(options_for(tetrahedron, session, folder / ""), messages, error), 0);
    EXPECT_NE(error.find("a.png: this file is read"), std::string::npos) << error;
    EXPECT_EQ(folder.text("a.png"), short_session);
    EXPECT_EQ(vw_play_offscreen(options_for(tetrahedron, session, session + "/out"), messages, error), 0);
    EXPECT_NE(error.find("a.png/out: the folder cannot be made"), std::string::npos) << error;
}

TEST(vwModel, a_file_that_fails_leaves_the_model_as_it_was)
{
    vwModel model;
    std::string error;
    ASSERT_EQ(model.add_file(tetrahedron, error), 1) << error;
    EXPECT_EQ(model.add_file("/nowhere/at-all.tarn", error), 0);
    EXPECT_EQ(model.n_blocks(), 1);
    EXPECT_EQ(model.n_triangles(), 4);
    EXPECT_EQ(model.names(), "tetrahedron.tarn");
    EXPECT_EQ(model.root().nelements(), 2) << "a colour and the block";
}

TEST(vwModel, takes_the_place_of_its_files_by_those_of_another)
{
    vwModel model(gi_Y_AXIS), other(gi_Y_AXIS);
    std::string error;
    ASSERT_TRUE(model.add_file(tetrahedron, error) && other.add_file(tetrahedron, error) &&
                other.add_file(tetrahedron, error))
        << error;
    const giBox3 box = model.root().bounding_box();
    model.take(other);
    EXPECT_EQ(model.n_blocks(), 2);
    EXPECT_EQ(model.root().bounding_box(), box);
    ASSERT_EQ(model.parts().size(), 2u);
    EXPECT_EQ(model.parts()[1].path.front().get(), model.root().element(1)) << "the call of its own root";
    EXPECT_EQ(other.n_blocks(), 0);
    EXPECT_TRUE(other.root().bounding_box().empty());
}

TEST(vwFrameTimes, the_summary_is_about_the_last_frames)
{
    vwFrameTimes times;
    EXPECT_EQ(times.summary().count, 0);
    for (int i = 1; i <= 100; ++i)
        times.add({i * 0.1, i * 0.001});
    const vwFrameSummary all = times.summary();
    EXPECT_EQ(all.count, 100);
    EXPECT_NEAR(all.mean, 0.0505, 1e-12);
    EXPECT_EQ(all.median, 50 * 0.001);
    EXPECT_EQ(all.slow, 95 * 0.001);
    EXPECT_EQ(all.longest, 100 * 0.001);
    EXPECT_EQ(times.summary(10).count, 10);
    EXPECT_EQ(times.summary(10).median, 95 * 0.001);
}

TEST(vwReport, texts_are_safe_in_html)
{
    EXPECT_EQ(vw_html_text("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
    vwReport report;
    report.title = "<script>";
    std::ostringstream page;
    vw_write_report(page, report);
    EXPECT_EQ(page.str().find("<script>"), std::string::npos);
    EXPECT_NE(page.str().find("No frame was drawn"), std::string::npos);
}
