#include "MonitorNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace corvane::x11 {

namespace {

std::array<uint8_t, 128> edidWith(uint8_t kind, std::string_view text)
{
    std::array<uint8_t, 128> edid{};
    edid[72 + 3] = kind;
    std::copy(text.begin(), text.end(), edid.begin() + 72 + 5);
    return edid;
}

} // namespace

TEST(MonitorNameTests, theNameEndsAtTheLineBreak)
{
    EXPECT_EQ(monitorNameFromEdid(edidWith(0xFC, "Studio 27\n   ")), QStringLiteral("Studio 27"));
    EXPECT_EQ(
        monitorNameFromEdid(edidWith(0xFC, "ThirteenChars")), QStringLiteral("ThirteenChars"));
}

TEST(MonitorNameTests, anEdidWithoutANameGivesNone)
{
    EXPECT_TRUE(monitorNameFromEdid(edidWith(0xFF, "Serial 1\n")).isEmpty());
    EXPECT_TRUE(monitorNameFromEdid(std::array<uint8_t, 40>{}).isEmpty());
    EXPECT_TRUE(monitorNameFromEdid({}).isEmpty());
}

} // namespace corvane::x11
