#pragma once

#include "tnCommands.h"
#include "tnProgress.h"
#include "tnTarnFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

/// Runs gr-tarn on files in a folder that goes with the test.
class gr_tarn : public testing::Test
{
protected:
    void SetUp() override
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        the_folder = std::filesystem::path(testing::TempDir()) / (std::string("gr_tarn_") + test->name());
        std::filesystem::remove_all(the_folder);
        std::filesystem::create_directories(the_folder);
    }
    void TearDown() override { std::filesystem::remove_all(the_folder); }

    std::string file(const std::string& name) const { return (the_folder / name).string(); }

    int run(std::vector<const char*> words)
    {
        words.insert(words.begin(), "gr-tarn");
        the_out.str("");
        the_errors.str("");
        return tn_run(static_cast<int>(words.size()), words.data(), the_out, the_errors, 0);
    }
    int run(const char* command, const std::string& first, const std::string& second)
    {
        return run({command, first.c_str(), second.c_str()});
    }

    tn_blocks blocks(const std::string& name) const
    {
        tn_blocks read;
        std::string error;
        tnProgress silent(nullptr, "");
        EXPECT_TRUE(tn_read(file(name), read, error, silent)) << error;
        return read;
    }

    void write(const std::string& name, const std::string& text) const { std::ofstream(file(name)) << text; }

    std::filesystem::path the_folder;
    std::ostringstream the_out, the_errors;
};
