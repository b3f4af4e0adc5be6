#include "AgentDesk.h"

#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>

namespace corvane::kwin {

using namespace Qt::StringLiterals;

namespace {

QJsonObject parsed(const QByteArray &text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

TEST(AgentDeskTests, aWindowIsKnownByItsIdentifierForAsLongAsItIsThere)
{
    WindowNumbers numbers;
    const QByteArray text = R"({"windows": [
        {"id": "{a}", "frame": [-0.5, 0, 646.667, 500], "title": "\"};\u0000\ud800\u202e<b>"},
        {"id": "{b}", "frame": [1, 2, 3, 4]}], "focused": "{b}", "areas": []})";

    const auto desk = deskIn(parsed(text), numbers);
    ASSERT_TRUE(desk && desk->windows.size() == 2);
    EXPECT_EQ(desk->windows.first().frame, (Rect{-0.5, 0, 646.667, 500}));
    EXPECT_EQ(desk->focused, desk->windows.last().element);
    EXPECT_EQ(numbers.identifier(desk->windows.last().element), u"{b}");

    numbers.keep({u"{b}"_s});
    EXPECT_EQ(numbers.element(u"{b}"_s), desk->windows.last().element);
    EXPECT_EQ(numbers.identifier(desk->windows.first().element), QString());
    EXPECT_NE(numbers.element(u"{a}"_s), desk->windows.first().element);
}

TEST(AgentDeskTests, whatMakesNoSenseIsNoDesk)
{
    for (const QByteArray text : {"", "[]", "{}", R"({"windows": []})",
             R"({"windows": [{"id": "", "frame": [1, 2, 3, 4]}], "areas": []})",
             R"({"windows": [{"id": "{a}", "frame": [1, 2, 3]}], "areas": []})",
             R"({"windows": [7], "areas": []})",
             R"({"windows": [], "areas": [{"output": [0, 0, 9, 9]}]})"}) {
        SCOPED_TRACE(text.toStdString());
        WindowNumbers numbers;

        EXPECT_FALSE(deskIn(parsed(text), numbers));
    }
}

} // namespace corvane::kwin
