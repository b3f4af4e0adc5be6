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

TEST(ClientPropertiesTests, aMachineIsThisOneWithItsDomainOrWithout)
{
    struct Case {
        const char16_t *machine;
        const char16_t *host;
        bool isThis;
    };
    for (const auto &[machine, host, isThis] : {Case{u"mars", u"mars", true},
             Case{u"Mars", u"mars.example.org", true}, Case{u"mars.example.org", u"mars", true},
             Case{u"mars.example.org", u"mars.local", false}, Case{u"mars", u"venus", false},
             Case{u"mars2", u"mars", false},
             Case{u"localhost.localdomain", u"mars.example.org", true}})
        EXPECT_EQ(isThisMachine(QString::fromUtf16(machine), QString::fromUtf16(host)), isThis)
            << QString::fromUtf16(machine).toStdString();
}

} // namespace corvane::x11
