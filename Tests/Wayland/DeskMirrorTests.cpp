#include "DeskMirror.h"

#include <gtest/gtest.h>

namespace corvane::wayland {

using namespace Qt::StringLiterals;

namespace {

const QString twoWindows = uR"({"windows": [
    {"id": "{a}", "frame": [-0.5, 0, 646.667, 500], "title": "\"};\u0000\u202e<b>"},
    {"id": "{b}", "frame": [1, 2, 3, 4], "kind": "standard"}, {"id": "", "frame": [1, 2, 3, 4]}, 7],
    "order": ["{b}", "{a}"], "focused": "{b}", "areas": []})"_s;

} // namespace

TEST(DeskMirrorTests, aWindowIsKnownByItsIdentifierForAsLongAsItIsThere)
{
    DeskMirror mirror;
    EXPECT_FALSE(mirror.desk());
    ASSERT_TRUE(mirror.take(twoWindows));

    const Desk first = mirror.desk().value_or(Desk());
    ASSERT_EQ(first.windows.size(), 2);
    EXPECT_EQ(first.windows.last().frame, (Rect{-0.5, 0, 646.667, 500}));
    EXPECT_EQ(first.windows.last().title.size(), 8);
    EXPECT_EQ(first.focused, first.windows.first().element);

    const auto moved =
        mirror.take(u"{\"frames\": [[\"{a}\", 5, 6, 7, 8], [\"{c}\", 1, 1, 1, 1]]}"_s);
    EXPECT_TRUE(moved && moved->frames && !moved->windows && !moved->workAreas);
    EXPECT_EQ(mirror.desk().value_or(Desk()).windows.value(1).frame, (Rect{5, 6, 7, 8}));

    ASSERT_TRUE(mirror.take(u"{\"order\": [\"{a}\"]}"_s));
    const Desk last = mirror.desk().value_or(Desk());
    ASSERT_EQ(last.windows.size(), 1);
    EXPECT_EQ(last.windows.first().element, first.windows.last().element);
    EXPECT_EQ(last.focused, std::nullopt);
    EXPECT_EQ(mirror.identifier(first.windows.first().element), QString());
}

TEST(DeskMirrorTests, whatMakesNoSenseChangesNothing)
{
    DeskMirror mirror;
    ASSERT_TRUE(mirror.take(twoWindows));
    const QList<Toplevel> before = mirror.desk().value_or(Desk()).windows;
    for (const auto &news :
        {u""_s, u"[]"_s, u"{\"order\": [\"{a}\"], \"areas\": [{\"output\": [0, 0, 9]}]}"_s,
            u"{\"windows\": [{\"id\": \"{b}\", \"frame\": [1, 2, 3]}], \"frames\": [[], 7, [\"{b}\", 1]]}"_s,
            u"{\"order\": 7, \"focused\": [], \"frames\": {}, \"areas\": true"_s}) {
        SCOPED_TRACE(news.toStdString());

        std::ignore = mirror.take(news);

        EXPECT_EQ(mirror.desk().value_or(Desk()).windows, before);
    }
}

} // namespace corvane::wayland
