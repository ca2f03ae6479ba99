#include "apFile.h"
#include "apNativePath.h"
#include "apProgram.h"
#include "tsFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

TEST(apFile, opens_plain_files_only)
{
    const tsFolder temporary;
    const apPathName folder(temporary.path()), file(temporary / "gr\xC3\xBC\xC3\x9F"
                                                                "e.txt");
    // Longer than Windows takes as it is.
    const apPathName deep = folder / std::string(200, 'd'), deepest = deep / std::string(200, 'f');
    std::filesystem::create_directories(ap_opened_path(deep));
    for (const apPathName& name : {file, deepest})
    {
        std::ifstream stream;
        EXPECT_FALSE(ap_file_exists(name));
        EXPECT_FALSE(ap_open_for_reading(name, stream));

        std::ofstream(ap_opened_path(name), std::ios::binary) << "a\r\nb";
        EXPECT_TRUE(ap_file_exists(name));
        ASSERT_TRUE(ap_open_for_reading(name, stream));
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "a\r\nb");
    }
    std::filesystem::remove_all(ap_opened_path(deep));

    std::ifstream folder_stream;
    EXPECT_FALSE(ap_file_exists(folder));
    EXPECT_FALSE(ap_open_for_reading(folder, folder_stream));
    EXPECT_FALSE(folder_stream.is_open());
    EXPECT_FALSE(ap_file_exists(apPathName("\xFF\xFE")));
}

TEST(apFile, splits_path_lists_in_order)
{
    const std::vector<apPathName> entries = ap_split_path_list(";one dir;;two;");
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].utf8(), "one dir");
    EXPECT_EQ(entries[1].utf8(), "two");
    EXPECT_TRUE(ap_split_path_list("").empty());
    // Only where no colon follows the letter of a drive it parts names.
    const bool has_drives = std::filesystem::path::preferred_separator == '\\';
    EXPECT_EQ(ap_split_path_list("c:\\fonts;d:/more").size(), has_drives ? 2u : 4u);
    EXPECT_EQ(apPathName("c:\\fonts").is_absolute(), has_drives);
}

TEST(apPathName, joins_and_keeps_absolute_names)
{
    const apPathName folder("fonts");
    EXPECT_EQ((folder / apPathName("a.ttf")), apPathName((std::filesystem::path("fonts") / "a.ttf").string()));
    const apPathName absolute(std::filesystem::temp_directory_path().string());
    EXPECT_TRUE(absolute.is_absolute());
    EXPECT_EQ(folder / absolute, absolute);
    EXPECT_EQ(apPathName() / folder, folder);
}

TEST(apProgram, a_program_finds_what_lies_beside_it)
{
    const apPathName program = ap_program_folder() / "test_portability";
    EXPECT_TRUE(ap_file_exists(program) || ap_file_exists(program.utf8() + ".exe"));
}
