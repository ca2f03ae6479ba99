#include "grAction.h"

#include "grColourMode.h"
#include "grIdleAction.h"
#include "grTwidBusyState.h"
#include "grTwidState.h"

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

namespace
{
template <class... Values>
std::string text(Values... values)
{
    std::ostringstream os;
    ((os << values << ' '), ...);
    return os.str();
}
}

TEST(enumerations, print_their_own_names_and_their_type_for_unknown_values)
{
    EXPECT_EQ(text(grTRUE_COLOUR, grPSEUDO_COLOUR, static_cast<grColourMode>(5)),
              "grTRUE_COLOUR grPSEUDO_COLOUR Unknown value for grColourMode ");
    EXPECT_EQ(text(grTWID_NOT_STARTED, grTWID_TWIDDLING, grTWID_ENDED, static_cast<grTwidState>(3)),
              "grTWID_NOT_STARTED grTWID_TWIDDLING grTWID_ENDED Unknown value for grTwidState ");
    EXPECT_EQ(text(grTWID_NOT_BUSY, grTWID_BUSY, static_cast<grTwidBusyState>(2)),
              "grTWID_NOT_BUSY grTWID_BUSY Unknown value for grTwidBusyState ");
    EXPECT_EQ(text(grIDLE_DONE, grIDLE_AGAIN, static_cast<grIdleAction>(2)),
              "grIDLE_DONE grIDLE_AGAIN Unknown value for grIdleAction ");
}
