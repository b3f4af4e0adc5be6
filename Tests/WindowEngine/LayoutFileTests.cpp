#include "Decoding.h"
#include "Testing.h"
#include "WindowLayout.h"

#include <QtCore/QJsonDocument>

namespace corvane {

TEST(LayoutFileTests, everyFieldSurvivesItsFile)
{
    const QString odd = u"\"Desk\" – "_s + QChar(0) + QChar(0xd800);
    const WindowLayout layout{.name = odd,
        .displays = {{odd, -1, 900}},
        .panes = {Pane{},
            Pane{{}, -1, {0.1, -2, 1.0 / 3, 7}, AppRef{odd, u""_s}, odd, false, -3, odd}},
        .applyOnConnect = true,
        .shortcut = KeyCombo(18, KeyCombo::command),
        .created = QDateTime::fromMSecsSinceEpoch(1234567890123).toUTC()};
    DecodeProblems problems;

    EXPECT_EQ(decode<WindowLayout>(layout.toJson(), problems), layout);
    EXPECT_EQ(problems.count, 0);
}

TEST(LayoutFileTests, whatIsMissingTakesItsDefaultAndWhatIsBadIsCountedOnce)
{
    const WindowLayout now;
    DecodeProblems problems;

    const QByteArray json =
        R"({"shortcut": null, "panes": [{}, 7, {"display": 0.5}, {"app": {}}, {"rect": {"x": 0}},
            {"rect": {"x": 0, "y": 0, "w": 1, "h": 1e300}}, {"id": "{}"}], "applyOnConnect": 0,
            "created": "2026-03-29T01:59:59", "id": "3f2504e0"})";
    const auto layout = decode<WindowLayout>(QJsonDocument::fromJson(json).object(), problems);

    EXPECT_EQ(problems.count, 9);
    ASSERT_TRUE(layout && layout->panes.size() == 1 && layout->created >= now.created);
    const Pane pane = layout->panes.first();
    EXPECT_EQ(pane, (Pane{.id = pane.id}));
    EXPECT_EQ(pane.toJson().keys().join(u' '), u"display id launch rect");
    EXPECT_EQ(layout->name, u"Layout"_s);
    EXPECT_TRUE(layout->displays.isEmpty() && !layout->applyOnConnect && !layout->shortcut);
}

TEST(LayoutFileTests, aWindowsShareIsOfItsVisiblePartInAsFewDigitsAsTellIt)
{
    const Rect area{0, 25, 1440, 875};

    EXPECT_EQ(WindowLayout::unitRect({1080, 0, 720, 462.5}, area), (UnitRect{0.75, 0, 0.25, 0.5}));
    EXPECT_EQ(WindowLayout::unitRect({1, 25, 479, 875}, area), (UnitRect{0.0007, 0, 0.3326, 1}));
    EXPECT_EQ(WindowLayout::unitRect({12, 37, 702, 851}, area, 12), (UnitRect{0, 0, 0.5, 1}));
    for (const Rect &outside : {Rect{1440, 25, 300, 300}, {0, notANumber, 100, 100}})
        EXPECT_EQ(WindowLayout::unitRect(outside, area), (UnitRect{0, 0, 1, 1}));
}

TEST(LayoutFileTests, aLayoutKnowsItsDisplaysInAnyOrderAndTakesTheFirstFreeName)
{
    const DisplayKey laptop{u"Built-in"_s, 1440, 900};
    const DisplayKey screen{u"Studio"_s, 2560, 1440};
    const WindowLayout layout{.name = u"Desk"_s, .displays = {laptop, screen}};

    EXPECT_TRUE(layout.matches({screen, laptop}));
    EXPECT_FALSE(layout.matches({laptop}) || layout.matches({laptop, screen, screen}));
    EXPECT_FALSE(layout.matches({laptop, {u"Studio"_s, 1440, 2560}}));
    EXPECT_EQ(uniqueName(u"desk"_s, {layout}), u"desk");
    EXPECT_EQ(uniqueName(u"Desk"_s, {layout, {.name = u"Desk 2"_s}}), u"Desk 3");
}

} // namespace corvane
