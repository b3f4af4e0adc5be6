#include "ScreenReaderTests.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QStringList panes{u"General"_s, u"Shortcuts"_s, u"Layouts"_s, u"Tremor Log"_s, u"About"_s};
/// What a person operates.
const QStringList controlRoles{u"push button"_s, u"check box"_s, u"radio button"_s, u"slider"_s,
    u"text"_s, u"list"_s, u"list item"_s, u"link"_s, u"menu item"_s, u"combo box"_s};

/// The settings window with something in every pane, and a screen reader.
class AccessibilityTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        showFocused();
        EXPECT_EQ(place(Placement::leftHalf).name(), u"moved"_s);
        edit(settingsFile, R"({"gap": 12, "cycling": false, "appearance": "light"})");
        startReader();
        EXPECT_EQ(corvane().ask({u"--pane"_s, u"general"_s}).exitStatus, 0);
        EXPECT_TRUE(comesTo(find(u"list Panes"_s), Accessible::focused));
        edit(layoutsFile, R"([{"name": "Work"}, "no layout, as a notice tells"])");
        find(u"push button Dismiss"_s);
    }

    QJsonValue saved(const QString &setting) { return contents(settingsFile)[setting]; }
    void turnTo(const QString &pane)
    {
        reader().operate(find(u"list item "_s + pane));
        find(u"label "_s + pane);
    }
    bool isDescribed(const QString &title, const QString &description)
    {
        return waitUntil([&] { return reader().description(find(title)) == description; });
    }
    void record(const QString &recorder, const KeyStroke &stroke)
    {
        const qsizetype seen = corvane().log().size();
        EXPECT_TRUE(reader().operate(find(recorder)));
        EXPECT_TRUE(isDescribed(recorder, u"PRESS KEYS"_s));
        EXPECT_TRUE(corvane().waitForLog(u"no hot key while"_s, seen));
        keys().press(stroke);
    }
};

} // namespace

TEST_F(AccessibilityTests, everyControlSaysWhatItIsWhereItIsAndHowItStands)
{
    struct Control {
        QString pane;
        QString within;
        QString title;
        QString description{};
        bool isChecked = false;
    };
    const Control controls[]{
        {u"General"_s, u"panel Tiling"_s, u"slider Gap between windows"_s,
            u"The space Corvane leaves at every shared edge and every screen edge."_s},
        {u"General"_s, u"panel Tiling"_s, u"check box Repeat a shortcut to cycle sizes"_s,
            u"A second press of Left Half goes 1/2 → 2/3 → 1/3 and round again."_s},
        {u"General"_s, u"panel Theme"_s, u"radio button Light"_s, u"Theme"_s, true},
        {u"Shortcuts"_s, u"panel Halves"_s, u"push button Left Half shortcut"_s,
            u"Control Alt Super Left Arrow"_s},
        {u"Shortcuts"_s, u"panel Sixths"_s, u"push button Top Left Sixth shortcut"_s, u"None"_s},
        {u"Layouts"_s, u"list Layouts"_s, u"list item Work, No displays"_s},
        {u"Layouts"_s, u"panel Layout"_s, u"push button Apply"_s},
        {u"Tremor Log"_s, u"panel Show"_s, u"radio button All"_s, u"Show"_s, true},
        {u"About"_s, u"frame Corvane Settings"_s, u"link Corvane Website"_s}};
    for (const QString &pane : panes) {
        turnTo(pane);
        for (const QList<Accessible> shown = reader().shown(); const Accessible &each : shown) {
            SCOPED_TRACE((pane + u": "_s + each.title()).toStdString());
            const bool isControl = controlRoles.contains(each.role);
            EXPECT_TRUE(!isControl || !each.name.isEmpty());
            EXPECT_TRUE(isControl || !each.is(Accessible::focusable));
            EXPECT_EQ(each.is(Accessible::selected),
                each.title() == u"list item "_s + pane || each.within == u"list Layouts"_s);
        }
    }
    for (const auto &[pane, within, title, description, isChecked] : controls) {
        SCOPED_TRACE(title.toStdString());
        turnTo(pane);
        const Accessible control = find(title);
        EXPECT_EQ(control.within.toStdString(), within.toStdString());
        EXPECT_TRUE(isDescribed(title, description));
        EXPECT_TRUE(comesTo(control, Accessible::checked, isChecked));
        EXPECT_TRUE(control.is(Accessible::enabled));
    }
}

TEST_F(AccessibilityTests, tabGoesOnceToEveryControlInReadingOrder)
{
    const auto hasFocus = [this](const Accessible &each) {
        return reader().is(each, Accessible::focused);
    };
    for (const QString &pane : panes) {
        turnTo(pane);
        // Arrow keys walk a list and a group of radio buttons.
        QList<Accessible> stops = reader().shown();
        stops.removeIf([](const Accessible &each) {
            return !each.is(Accessible::focusable) || !each.is(Accessible::enabled)
                || each.role == u"list item"_s
                || (each.role == u"radio button"_s && !each.is(Accessible::checked));
        });
        ASSERT_EQ(stops.value(0).title(), u"list Panes"_s);
        for (qsizetype step = 1; step <= stops.size(); ++step) {
            const Accessible &next = stops[step % stops.size()];
            keys().press({0, Key::tab});
            ASSERT_TRUE(comesTo(next, Accessible::focused)) << qPrintable(next.title());
            EXPECT_EQ(std::ranges::count_if(stops, hasFocus), 1);
        }
    }
}

TEST_F(AccessibilityTests, aScreenReaderOperatesEveryKindOfControl)
{
    const std::tuple<QString, QString, QJsonValue> settings[]{
        {u"check box Repeat a shortcut to cycle sizes"_s, u"cycling"_s, true},
        {u"slider Gap between windows"_s, u"gap"_s, 20},
        {u"slider Larger / Smaller step"_s, u"sizeStep"_s, 90},
        {u"radio button Dark"_s, u"appearance"_s, u"dark"_s}};
    for (const auto &[title, setting, value] : settings) {
        SCOPED_TRACE(title.toStdString());
        const Accessible control = find(title);

        if (value.isDouble())
            reader().setValue(control, value.toDouble());
        else
            EXPECT_TRUE(reader().operate(control));

        EXPECT_TRUE(waitUntil([&] { return saved(setting) == value; }));
    }
    const QString ofLeftHalf = u"push button Left Half shortcut"_s;
    turnTo(u"Shortcuts"_s);
    record(ofLeftHalf, {strokes::shifted, Key::g});
    EXPECT_TRUE(isDescribed(ofLeftHalf, u"Control Alt Shift G"_s));
    EXPECT_TRUE(comesTo(find(ofLeftHalf), Accessible::focused));

    const QString ofLayout = u"push button Layout shortcut"_s;
    turnTo(u"Layouts"_s);
    record(ofLayout, {strokes::hyper, Key::right});
    const Accessible move = find(u"push button Move It"_s);
    EXPECT_EQ(move.within, u"dialog Shortcut in Use"_s);
    EXPECT_TRUE(comesTo(move, Accessible::focused));
    EXPECT_TRUE(reader().operate(move));
    EXPECT_TRUE(isDescribed(ofLayout, u"Control Alt Super Right Arrow"_s));
    EXPECT_TRUE(comesTo(find(ofLayout), Accessible::focused));
    EXPECT_FALSE(saved(u"shortcuts"_s).toArray().contains(u"rightHalf"_s));

    EXPECT_TRUE(reader().operate(find(u"push button Dismiss"_s)));
    EXPECT_TRUE(comesTo(find(u"list Panes"_s), Accessible::focused));

    EXPECT_TRUE(reader().operate(find(u"push button Menu"_s)));
    EXPECT_TRUE(waitUntil([this] { return probe().openMenus(corvane().pid()).size() == 1; }));
}

} // namespace corvane::desktop
