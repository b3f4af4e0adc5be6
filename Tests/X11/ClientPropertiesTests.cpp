#include "ClientProperties.h"

#include <gtest/gtest.h>

namespace corvane::x11 {

using namespace Qt::StringLiterals;

TEST(ClientPropertiesTests, aSandboxedProcessHasAnotherNumberInside)
{
    EXPECT_EQ(innermostPid("Name:\tapp\nPid:\t4711\nNSpid:\t4711\t23\t2\nUid:\t0\n"), 2);
    EXPECT_EQ(innermostPid("NSpid:\t4711\n"), 4711);
    EXPECT_EQ(innermostPid("Name:\tNSpid: 7\n"), 0);
    EXPECT_EQ(innermostPid(""), 0);
}

TEST(ClientPropertiesTests, aMachineIsThisOneWithItsDomainOrWithout)
{
    EXPECT_TRUE(isThisMachine(u"Mars"_s, u"mars.example.org"_s));
    EXPECT_TRUE(isThisMachine(u"mars.example.org"_s, u"mars"_s));
    EXPECT_TRUE(isThisMachine(u"localhost.localdomain"_s, u"mars"_s));
    EXPECT_FALSE(isThisMachine(u"mars.example.org"_s, u"mars.local"_s));
    EXPECT_FALSE(isThisMachine(u"mars2"_s, u"mars"_s));
}

} // namespace corvane::x11
