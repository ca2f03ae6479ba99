#include "apFile.h"
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
    std::ifstream stream;
    EXPECT_FALSE(ap_file_exists(file));
    EXPECT_FALSE(ap_open_for_reading(file, stream));

    std::ofstream(file.utf8(), std::ios::binary) << "a\r\nb";
    EXPECT_TRUE(ap_file_exists(file));
    ASSERT_TRUE(ap_open_for_reading(file, stream));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "a\r\nb");

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
    EXPECT_TRUE(ap_file_exists(ap_program_folder() / "test_portability"));
}
