#include "ClientProperties.h"

#include <gtest/gtest.h>

namespace corvane::x11 {

TEST(ClientPropertiesTests, aSandboxedProcessHasAnotherNumberInside)
{
    EXPECT_EQ(innermostPid("Name:\tapp\nPid:\t4711\nNSpid:\t4711\t23\t2\nUid:\t0\n"), 2);
    EXPECT_EQ(innermostPid("NSpid:\t4711\n"), 4711);
    EXPECT_EQ(innermostPid("Name:\tNSpid: 7\n"), 0);
    EXPECT_EQ(innermostPid(""), 0);
}

} // namespace corvane::x11
