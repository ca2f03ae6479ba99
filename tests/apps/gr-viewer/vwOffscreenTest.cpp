#include "vwOffscreen.h"

#include "vwModel.h"
#include "vwOptions.h"
#include "vwReport.h"

#include "dgImage.h"
#include "pcPictureFile.h"

#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace
{
namespace fs = std::filesystem;

const std::string tetrahedron = VW_TEST_DATA "/tetrahedron.tarn";

// A folder that is gone with the object.
class Folder
{
public:
    Folder() : the_path(fs::path(testing::TempDir()) / "vw-offscreen-test")
    {
        fs::remove_all(the_path);
        fs::create_directories(the_path);
    }
    ~Folder() { fs::remove_all(the_path); }
    std::string operator/(const std::string& name) const { return (the_path / name).string(); }
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(*this / name, std::ios::binary) << text;
        return *this / name;
    }

private:
    fs::path the_path;
};

std::string text_of(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

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
    const Folder folder;
    const vwOptions options = options_for(tetrahedron, folder.write("s.session", short_session), folder / "new/out");
    std::ostringstream messages;
    std::string error;
    ASSERT_EQ(vw_play_offscreen(options, messages, error), 1) << error;
    EXPECT_NE(messages.str().find("2 pictures"), std::string::npos) << messages.str();
    EXPECT_EQ(text_of(folder / "new/out/a.png").substr(1, 3), "PNG");
    EXPECT_EQ(text_of(folder / "new/out/b.png").substr(1, 3), "PNG");
    const std::string page = text_of(folder / "new/out/index.html");
    for (const char* part : {"src=\"a.png\"", "src=\"b.png\"", "<svg", "tetrahedron.tarn: 1 blocks, 4 triangles"})
        EXPECT_NE(page.find(part), std::string::npos) << part;
}

TEST(vwOffscreen, what_is_wrong_is_named_and_nothing_is_written)
{
    const Folder folder;
    const std::string session = folder.write("s.session", short_session);
    const struct
    {
        const char* name;
        std::string file, session, named;
    } cases[] = {
        {"missing model", folder / "no.tarn", session, "no.tarn: the file is missing"},
        {"model that is a folder", folder / "", session, "the file is missing or cannot be read"},
        {"model that is something else", folder.write("x.tarn", "hello\n"), session, "x.tarn: this is no tarn file"},
        {"model cut short", folder.write("y.tarn", text_of(tetrahedron).substr(0, 250)), session,
         "y.tarn: this is no tarn file, or it is damaged"},
        {"tarn file without blocks", folder.write("z.tarn", "*\n0\n"), session,
         "z.tarn: the tarn file holds no blocks"},
        {"missing mesh", folder / "no.stl", session, "no.stl"},
        {"damaged mesh", folder.write("bad.ply", "ply\nformat"), session, "bad.ply"},
        {"missing session", tetrahedron, folder / "no.session", "no.session: the session is missing"},
        {"damaged session", tetrahedron, folder.write("t.session", "gr-session 1\n0 fly\n"), "t.session: line 2"},
    };
    for (const auto& c : cases)
    {
        std::ostringstream messages;
        std::string error;
        EXPECT_EQ(vw_play_offscreen(options_for(c.file, c.session, folder / "out"), messages, error), 0) << c.name;
        EXPECT_NE(error.find(c.named), std::string::npos) << c.name << ": " << error;
        EXPECT_FALSE(fs::exists(folder / "out")) << c.name;
    }
}

TEST(vwOffscreen, a_folder_that_cannot_be_made_is_named)
{
    const Folder folder;
    const std::string session = folder.write("s.session", short_session);
    std::ostringstream messages;
    std::string error;
    EXPECT_EQ(vw_play_offscreen(options_for(tetrahedron, session, session + "/out"), messages, error), 0);
    EXPECT_NE(error.find("s.session/out"), std::string::npos) << error;
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

TEST(pcPictureFile, the_upper_row_of_an_image_is_the_first_of_the_file)
{
    const Folder folder;
    dgImage image;
    image.width = 2;
    image.height = 2;
    image.rgba = {1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 10, 11, 12, 0}; // from the bottom up
    std::string error;
    ASSERT_EQ(pc_write_png(folder / "p.png", image, error), 1) << error;

    png_image png = {};
    png.version = PNG_IMAGE_VERSION;
    ASSERT_TRUE(png_image_begin_read_from_file(&png, (folder / "p.png").c_str())) << png.message;
    png.format = PNG_FORMAT_RGB;
    unsigned char rgb[12] = {};
    ASSERT_TRUE(png_image_finish_read(&png, nullptr, rgb, 0, nullptr)) << png.message;
    const unsigned char expected[12] = {7, 8, 9, 10, 11, 12, 1, 2, 3, 4, 5, 6};
    EXPECT_TRUE(std::equal(std::begin(rgb), std::end(rgb), expected));
    EXPECT_EQ(pc_write_png(folder / "no/p.png", image, error), 0);
    EXPECT_NE(error.find("no/p.png"), std::string::npos);
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
