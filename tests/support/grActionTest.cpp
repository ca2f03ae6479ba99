#include "grAction.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(grAction, keeps_its_own_copy_of_the_last_binding)
{
    grAction action(grActionTrigger(gwMOUSE_BUTTON, 1, 0, ""), "zoom");
    EXPECT_EQ(action.binding(), nullptr);
    {
        const grToolDetail first(nullptr, 3), second(nullptr, 4);
        action.bind(first);
        action.bind(second);
    }
    ASSERT_NE(action.binding(), nullptr);
    EXPECT_EQ(action.binding()->tool(), 4);
}

TEST(grAction, dumps_its_trigger_and_binding)
{
    const grAction action(grActionTrigger(gwMOUSE_BUTTON, 1, gwMODIFIER_SHIFT, "x,y"), "zoom");
    std::ostringstream os;
    os << action;
    EXPECT_EQ(os.str(), "grAction {\n"
                        "  action_name is zoom\n"
                        "  trigger is grActionTrigger {\n"
                        "  key_type is gwMOUSE_BUTTON\n"
                        "  key_number is 1\n"
                        "  modifiers is 2\n"
                        "  args is x,y\n"
                        "}\n"
                        "  binding is null\n"
                        "}\n");
}
