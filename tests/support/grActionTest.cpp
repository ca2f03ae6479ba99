#include "grAction.h"

#include <gtest/gtest.h>

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
