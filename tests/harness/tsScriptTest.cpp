#include "tsScript.h"
#include "tsStage.h"

#include <gtest/gtest.h>

#include <exception>

// The scripts of a program's folder, each as a test of its own.
namespace
{
class Script : public testing::TestWithParam<tsScript>
{};

std::string lines(const std::vector<std::string>& records)
{
    std::string text;
    for (const std::string& record : records)
        text += "\n      " + record;
    return text;
}
}

// PrintTo is what GoogleTest looks for.
void PrintTo(const tsScript& script, std::ostream* os);
void PrintTo(const tsScript& script, std::ostream* os)
{
    *os << script.file << ".script: " << script.name;
}

TEST_P(Script, records)
{
    const tsScript& script = GetParam();
    tsStage stage;
    for (const tsStep& step : script.steps)
    {
        const std::string place = script.file + ".script:" + std::to_string(step.line) + ": " + step.commands;
        ASSERT_NO_THROW(stage.run(step.commands)) << place;
        const std::vector<std::string> records = stage.take();
        if (step.checked)
        {
            EXPECT_TRUE(ts_matches(step.expected, records))
                << place << "\n    expected" << lines(step.expected) << "\n    found" << lines(records);
        }
    }
    EXPECT_EQ(stage.complaint(), "");
}

INSTANTIATE_TEST_SUITE_P(, Script, testing::ValuesIn(ts_read_scripts(TS_SCRIPTS)),
                         [](const auto& tested) { return tested.param.file + "_" + tested.param.name; });
