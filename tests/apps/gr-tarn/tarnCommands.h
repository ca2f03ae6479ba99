#pragma once

#include "tnCommands.h"

#include "msTarnFile.h"
#include "tsFolder.h"

#include <gtest/gtest.h>

#include <sstream>

/// Runs gr-tarn on files in a folder.
class gr_tarn : public testing::Test
{
protected:
    /// The command line in one text; words that start with @ name files of the folder.
    int run(const std::string& line)
    {
        std::vector<std::string> words{"gr-tarn"};
        std::istringstream stream(line);
        for (std::string word; stream >> word;)
            words.push_back(word[0] == '@' ? the_folder / word.substr(1) : word);
        std::vector<const char*> arguments;
        for (const std::string& word : words)
            arguments.push_back(word.c_str());
        the_out.str("");
        the_errors.str("");
        return tn_run(static_cast<int>(arguments.size()), arguments.data(), the_out, the_errors, 0);
    }
    void make_part() { ASSERT_EQ(run("sample --triangles 20000 @part.tarn"), 0) << the_errors.str(); }

    ms_blocks blocks(const std::string& name) const
    {
        ms_blocks read;
        std::string error;
        EXPECT_TRUE(ms_read_tarn(the_folder / name, read, error)) << error;
        return read;
    }

    const tsFolder the_folder;
    std::ostringstream the_out, the_errors;
};
