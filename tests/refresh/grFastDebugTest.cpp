#include "apEnvironmentOverride.h"
#include "grViewRendererFast.h"
#include "tsHeavyView.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{
namespace fs = std::filesystem;

// A folder of its own, gone at the end.
struct Folder
{
    Folder()
        : path(fs::temp_directory_path() / ("gr_flat_test_" + std::to_string(reinterpret_cast<std::uintptr_t>(this))))
    {
        fs::create_directories(path);
    }
    ~Folder() { fs::remove_all(path); }
    fs::path path;
};

std::string text_of(const fs::path& file)
{
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}
}

TEST(grViewRendererFast, prints_what_it_measures_when_asked)
{
    const apEnvironmentOverride environment("GR_TWIDDLE_DEBUG", "");
    tsHeavyView heavy(1 << 10, 0.25);
    testing::internal::CaptureStdout();
    grViewRendererFast fast(&heavy.view());
    for (int i = 0; i < 3; ++i)
        fast.refresh(nullptr, 0);
    fast.refresh(nullptr, 1);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Flatten time: 0.25\nCallibration time: 0.25\nDraw method = 0\nFrame time: 0.25\n");
}

TEST(grViewRendererFast, writes_flattened_structures_when_asked)
{
    const apEnvironmentOverride environment("GR_TWIDDLE_DEBUG", "");
    const Folder folder;
    const tsSetting<int> guard(0, [](int on) { grViewRendererFast::dump_flattened(on); });
    const std::string before = grViewRendererFast::dump_prefix();
    const std::string prefix = (folder.path / "flat_").string();
    grViewRendererFast::dump_prefix(prefix);
    grViewRendererFast::dump_flattened(1);
    tsHeavyView heavy(3, 0.25);
    testing::internal::CaptureStdout();
    for (int i = 0; i < 2; ++i)
        grViewRendererFast(&heavy.view()).refresh(nullptr, 0);
    grViewRendererFast::dump_prefix(before);
    const std::string said = testing::internal::GetCapturedStdout();
    for (const char* number : {"0", "1"})
    {
        EXPECT_NE(said.find("Wrote " + prefix + number + ".xml\n"), std::string::npos);
        const std::string text = text_of(prefix + number + ".xml");
        EXPECT_EQ(text.rfind("<?xml", 0), 0u);
        EXPECT_NE(text.find("Created by gsStructureFlattener::render_structure()"), std::string::npos);
        EXPECT_NE(text.find("type=\"85\""), std::string::npos) << text;
    }
}
