#include "gwTypes.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(gwTypes, stream_their_own_names)
{
    std::ostringstream os;
    os << gwMOUSE_WHEEL << ' ' << gwTWIN_BUFFER << ' ' << gwX_ON_UNIX_DRIVER << ' ' << static_cast<gwKeyType>(6);
    EXPECT_EQ(os.str(), "gwMOUSE_WHEEL gwTWIN_BUFFER gwX_ON_UNIX_DRIVER Unknown value for gwKeyType");
}
