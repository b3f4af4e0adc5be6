#include "Decoding.h"
#include "WindowLayout.h"

#include <QtCore/QJsonDocument>

#include <gtest/gtest.h>

#include <cmath>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

struct Read {
    WindowLayout layout;
    int problems;
};

Read read(const QByteArray &json)
{
    DecodeProblems problems;
    const auto layout = decode<WindowLayout>(QJsonDocument::fromJson(json).object(), problems);
    return {layout.value_or(WindowLayout{}), problems.count};
}

} // namespace

TEST(WindowLayoutTests, whatIsMissingTakesItsDefaultSilently)
{
    const QDateTime before = QDateTime::currentDateTimeUtc();

    const auto [layout, problems] = read(R"({"shortcut": null, "panes": [{}], "new key": 1})");

    EXPECT_EQ(problems, 0);
    EXPECT_GE(layout.created, before);
    ASSERT_EQ(layout.panes.size(), 1);
    const Pane pane = layout.panes.first();
    EXPECT_EQ(pane, (Pane{.id = pane.id, .display = 0, .rect = {0, 0, 1, 1}, .launch = true}));
    EXPECT_EQ(layout,
        (WindowLayout{.id = layout.id,
            .name = u"Layout"_s,
            .panes = {pane},
            .applyOnConnect = false,
            .created = layout.created}));
    EXPECT_NE(layout.id, read("{}").layout.id);
}

TEST(WindowLayoutTests, damageCostsTheFieldOrThePaneAndIsCountedOnce)
{
    struct Example {
        const char *json;
        int panes;
        int problems;
    };
    const Example examples[]{
        {R"({"shortcut": 5, "panes": [{}]})", 1, 1},
        {R"({"panes": {}, "name": "x"})", 0, 1},
        {R"({"id": "x", "name": 1, "created": "now", "applyOnConnect": 0})", 0, 4},
        {R"({"panes": [{}, {"display": "1"}, {}]})", 2, 1},
        {R"({"panes": [{"rect": {"x": 0, "y": 0, "w": 1}}]})", 0, 1},
        {R"({"panes": [{"rect": {"x": 0, "y": 0, "w": 1, "h": 1e300}}]})", 0, 1},
        {R"({"panes": [{"app": {"name": "Mail"}}, {"app": null}]})", 1, 1},
        {R"({"panes": [7, null, {"launch": 1}, {"stack": 0.5}, {"titleContains": []}]})", 0, 5},
        {R"({"displays": [{"name": "A", "width": 1}, {}], "panes": [{}]})", 1, 2},
    };

    for (const Example &example : examples) {
        const Read result = read(example.json);
        EXPECT_EQ(result.layout.panes.size(), example.panes) << example.json;
        EXPECT_EQ(result.problems, example.problems) << example.json;
    }
}

TEST(WindowLayoutTests, absentOptionalsAreNotWritten)
{
    const WindowLayout layout{.panes = {Pane{}}};

    EXPECT_EQ(layout.toJson().keys().join(u' '), u"applyOnConnect created displays id name panes");
    EXPECT_EQ(layout.panes.first().toJson().keys().join(u' '), u"display id launch rect");
}

TEST(WindowLayoutTests, aWindowsShareIsOfItsVisiblePartInAsFewDigitsAsTellIt)
{
    const Rect area{0, 25, 1440, 875};
    const UnitRect whole{0, 0, 1, 1};

    EXPECT_EQ(WindowLayout::unitRect({0, 25, 480, 875}, area), (UnitRect{0, 0, 0.333, 1}));
    EXPECT_EQ(WindowLayout::unitRect({1080, 0, 720, 462.5}, area), (UnitRect{0.75, 0, 0.25, 0.5}));
    EXPECT_EQ(WindowLayout::unitRect({1, 25, 479, 875}, area), (UnitRect{0.0007, 0, 0.3326, 1}));
    EXPECT_EQ(WindowLayout::unitRect({12, 37, 702, 851}, area, 12), (UnitRect{0, 0, 0.5, 1}));
    EXPECT_EQ(WindowLayout::unitRect({1440, 25, 300, 300}, area), whole);
    EXPECT_EQ(WindowLayout::unitRect({0, 0, 100, 100}, {0, 0, 0, 900}), whole);
    EXPECT_EQ(WindowLayout::unitRect({0, std::nan(""), 100, 100}, area), whole);
}

TEST(WindowLayoutTests, itsDisplaysMatchInAnyOrderAndOnlyInTheirNumber)
{
    const DisplayKey laptop{u"Built-in"_s, 1440, 900};
    const DisplayKey screen{u"Studio"_s, 2560, 1440};
    const WindowLayout layout{.displays = {laptop, screen}};

    EXPECT_TRUE(layout.matches({screen, laptop}));
    EXPECT_FALSE(layout.matches({laptop}));
    EXPECT_FALSE(layout.matches({laptop, screen, screen}));
    EXPECT_FALSE(layout.matches({laptop, {u"Studio"_s, 1440, 2560}}));
    EXPECT_EQ(layout.displaySummary(), u"Built-in (1440 × 900), Studio (2560 × 1440)");
}

TEST(WindowLayoutTests, aUniqueNameTakesTheFirstFreeNumber)
{
    const QList<WindowLayout> taken{{.name = u"Desk"_s}, {.name = u"Desk 3"_s}};

    EXPECT_EQ(uniqueName(u"desk"_s, taken), u"desk");
    EXPECT_EQ(uniqueName(u"Desk"_s, taken), u"Desk 2");
    EXPECT_EQ(uniqueName(u"Desk"_s, taken + QList{WindowLayout{.name = u"Desk 2"_s}}), u"Desk 4");
}

} // namespace corvane
