#include "grStdToolFactory.h"

#include "grTwiddleTool.h"
#include "tsTable.h"
#include "utTypeID.h"

#include <gtest/gtest.h>

#include <memory>

namespace
{
// The class that a tool of the factory has; "" for no tool.
utString built(const grStdToolFactory& factory, int number)
{
    const std::unique_ptr<grTwiddleTool> tool(factory.create_tool(number, ""));
    return tool ? tool->ut_dynamic_type().name() : "";
}
}

TEST(grStdToolFactory, builds_the_tools_it_identifies)
{
    grStdToolFactory factory(nullptr, nullptr);
    for (const auto& row : ts_table(TS_TABLES "assembly.table", "tools"))
    {
        const int number = std::stoi(row[0]);
        EXPECT_EQ(factory.identify_tool(row[1]), number);
        EXPECT_EQ(built(factory, number), row[2]);
        grStdToolFactoryOptions options;
        options.use_multi_tool(number, 1);
        const int id = factory.push_options(options);
        EXPECT_EQ(built(factory, number), row[3]);
        factory.pop_options(id);
        EXPECT_EQ(built(factory, number), row[2]);
    }
    for (const char* unknown : {"Trackball", "trackball ", "", "view_cube"})
        EXPECT_EQ(factory.identify_tool(unknown), 0) << unknown;
    for (int number : {-1, 0, 20, 1000000})
        EXPECT_EQ(built(factory, number), "") << number;
}

TEST(grStdToolFactory, hands_arguments_and_database_to_its_tools)
{
    int database = 0;
    const auto* db = reinterpret_cast<const gwResourceDB*>(&database); // only passed through: a no_op reads nothing
    const grStdToolFactory factory(nullptr, db);
    const std::unique_ptr<grTwiddleTool> tool(factory.create_tool(17, "left,right"));
    EXPECT_EQ(tool->args(), "left,right");
    EXPECT_EQ(tool->resource_db(), db);
}

TEST(grStdToolFactory, options_are_a_stack_of_copies_whatever_the_id)
{
    grStdToolFactory factory(nullptr, nullptr);
    grStdToolFactoryOptions options;
    options.use_multi_tools(5);
    options.use_multi_tool(3, 0);
    const int id = factory.push_options(options);
    options.use_multi_tool(4, 0);
    EXPECT_EQ(factory.options().use_multi_tool(3), 0);
    EXPECT_EQ(factory.options().use_multi_tool(4), 1) << "a copy, with booleans for entries";
    EXPECT_EQ(factory.options().use_multi_tool(19), 1);

    // The entry on top may itself be pushed, again and again.
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(factory.push_options(factory.options()), id + 1 + i);
    EXPECT_EQ(factory.options().use_multi_tool(3), 0);
    EXPECT_EQ(factory.options().use_multi_tool(1), 1);

    for (int i = 0; i < 100; ++i)
        factory.pop_options(id);
    EXPECT_EQ(factory.options().use_multi_tool(1), 1);
    factory.pop_options(-1);
    EXPECT_EQ(factory.options().use_multi_tool(1), 0);
}

TEST(grStdToolFactory, ids_are_unique_across_factories)
{
    grStdToolFactory first(nullptr, nullptr);
    const int id = first.push_options(grStdToolFactoryOptions());
    grStdToolFactory second(nullptr, nullptr);
    EXPECT_EQ(second.push_options(grStdToolFactoryOptions()), id + 2) << "its default entry took one";
    EXPECT_EQ(first.push_options(grStdToolFactoryOptions()), id + 3);
}
