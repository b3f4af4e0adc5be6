#include "Decoding.h"
#include "ScreenReaderTests.h"
#include "WindowLayout.h"

#include <QtCore/QJsonArray>

#include <cmath>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr double gap = 12;
constexpr KeyStroke enter{0, Key::enter};
constexpr KeyStroke apply{KeyStroke::control, Key::enter};

/// Programs that show a window each, and the settings window, which has no layout yet.
class LayoutsPaneTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        corvane().stop();
        edit(settingsFile, QJsonDocument(QJsonObject{{u"gap"_s, gap}}).toJson());
    }
    void TearDown() override
    {
        m_running.clear();
        m_apps.clear();
        ScreenReaderTests::TearDown();
    }

    static QString idOf(const QString &name) { return u"corvane.test."_s + name; }
    void install(const QString &name)
    {
        m_apps.push_back(InstalledApp::scripted(session(), idOf(name), {u"open="_s + name}));
    }
    quint32 start(const QString &name)
    {
        install(name);
        m_running.push_back(m_apps.back()->start());
        return hand().waitForWindow(m_running.back()->pid(), {});
    }

    quint32 open()
    {
        EXPECT_EQ(corvane().ask({u"--pane"_s, u"layouts"_s}).exitStatus, 0);
        const quint32 window = hand().waitForWindow(corvane().pid(), {});
        EXPECT_TRUE(waitUntil([&] { return hand().activeWindow() == window; }));
        return window;
    }
    void press(const QList<KeyStroke> &strokes)
    {
        for (const KeyStroke &stroke : strokes)
            keys().press(stroke);
    }
    /// Opens the picker by Return and leaves it by this key, with that typed in between.
    void pick(const QByteArray &typed, const KeyStroke &leave = enter)
    {
        const quint32 settings = hand().activeWindow();
        keys().press(enter);
        ASSERT_TRUE(waitUntil([&] {
            const quint32 active = hand().activeWindow();
            return active != settings && hand().windowsOf(corvane().pid()).contains(active);
        })) << "no picker";
        keys().type(typed);
        keys().press(leave);
        ASSERT_TRUE(waitUntil([&] { return hand().activeWindow() == settings; }));
    }

    WindowLayout saved()
    {
        DecodeProblems problems;
        return WindowLayout::fromJson(contents(layoutsFile)[0], problems).value_or(WindowLayout{});
    }
    /// Each pane with the percents of its display that it covers.
    std::string panes()
    {
        const auto percent = [](double part) { return std::round(part * 1000) / 10; };
        const WindowLayout layout = saved();
        QStringList texts;
        for (const Pane &pane : layout.panes) {
            const UnitRect &rect = pane.rect;
            texts << u"%1 on %2: %3-%4, %5-%6"_s
                         .arg(pane.app ? pane.app->bundleID : u"none"_s,
                             layout.displays.value(pane.display).name)
                         .arg(percent(rect.x))
                         .arg(percent(rect.x + rect.w))
                         .arg(percent(rect.y))
                         .arg(percent(rect.y + rect.h));
        }
        return texts.join(u'\n').toStdString();
    }

private:
    std::vector<std::unique_ptr<InstalledApp>> m_apps;
    std::vector<std::unique_ptr<ChildProcess>> m_running;
};

using LayoutsPaneReaderTests = LayoutsPaneTests;

} // namespace

TEST_F(LayoutsPaneTests, aLayoutDrawnByKeysAlonePutsEveryWindowWhereThePictureHasIt)
{
    const Rect second = secondDisplay();
    const double thickness = 45;
    ASSERT_TRUE(hand().arrange({standardDisplay, second}));
    ASSERT_NE(client().showPanel(WindowRequest::panel(
                  standardDisplay, WindowRequest::Side::top, int(thickness), {0, 0, 3520, 1080})),
        0U);
    const Rect first{0, thickness, 1920, 1080 - thickness};
    QList<quint32> windows;
    for (const auto &name : {u"amber"_s, u"birch"_s, u"cedar"_s, u"dune"_s})
        windows << start(name);
    ASSERT_TRUE(corvane().start()) << qPrintable(session().logs());
    ASSERT_TRUE(focus(windows[0]));
    ASSERT_TRUE(waitUntil([&] {
        return place(Placement::maximize).to() == Geometry::frame(UnitRect{}, first, gap);
    })) << "the panel is not known";
    const quint32 settings = open();
    const auto appliesBy = [&](const std::function<void()> &how) {
        const qsizetype seen = corvane().log().size();
        how();
        EXPECT_TRUE(corvane().waitForLog(u"layout applied"_s, seen, 3 * patience));
        const WindowLayout layout = saved();
        for (qsizetype i = 0; i < windows.size(); ++i) {
            const Rect &area = layout.panes.value(i).display == 0 ? first : second;
            EXPECT_TRUE(rests(windows[i], Geometry::frame(layout.panes.value(i).rect, area, gap)));
        }
        EXPECT_TRUE(focus(settings));
    };
    const auto drawn = [](int last) {
        return QStringLiteral("corvane.test.amber on %2: 0-25, 0-100\n"
                              "corvane.test.birch on %2: 25-100, 0-40\n"
                              "corvane.test.cedar on %2: 25-100, 40-100\n"
                              "corvane.test.dune on %3: 0-100, 0-%1\n"
                              "none on %3: 0-100, %1-100")
            .arg(QString::number(last), displayName(0), displayName(1))
            .toStdString();
    };

    press({{KeyStroke::control, Key::n}});
    keys().type("desk");
    press({enter, {0, Key::f6}, {0, Key::f6}, {0, Key::c}});
    pick("birch", {0, Key::escape});
    pick("amber");
    press({{0, Key::right}, {0, Key::r}});
    pick("birch");
    press({{0, Key::down}});
    pick("cedar");
    const KeyStroke toSnap{KeyStroke::shift, Key::left};
    press({{0, Key::left}, {KeyStroke::alt, Key::right}, toSnap, toSnap, enter});
    press({{0, Key::right}, {KeyStroke::alt, Key::down}});
    keys().type("40");
    press({enter, {0, Key::right}, {0, Key::r}});
    pick("dune");
    press({{KeyStroke::alt, Key::down}, {0, Key::down}, {0, Key::down}, {0, Key::down}});
    appliesBy([&] { keys().press(apply); });
    EXPECT_EQ(saved().name, u"desk"_s);
    EXPECT_EQ(panes(), drawn(53));

    // What is being typed counts.
    keys().type("60");
    appliesBy([&] { keys().press(apply); });
    EXPECT_EQ(panes(), drawn(60));

    const KeyStroke back{KeyStroke::shift, Key::f6};
    press({back, back, back, {0, Key::f2}}); // from the report over the picture to the list
    keys().type("evening");
    press({{KeyStroke::control, Key::s}});
    EXPECT_TRUE(waitUntil([&] { return saved().name == u"evening"_s; }));
    press({{0, Key::f2}});
    keys().type("late");
    hand().place(windows[0], {500, 300, 300, 200});
    appliesBy([&] { keys().press(apply); });
    EXPECT_EQ(saved().name, u"late"_s);
    EXPECT_EQ(panes(), drawn(60));
}

TEST_F(LayoutsPaneReaderTests, aScreenReaderDrawsALayoutAppliesItAndReadsTheReport)
{
    const quint32 amber = start(u"amber"_s);
    install(u"alder"_s); // the first of all says in which list it is
    install(u"birch"_s);
    ASSERT_TRUE(corvane().start()) << qPrintable(session().logs());
    startReader();
    open();
    const auto choose = [&](const Accessible &pane, const QString &app) {
        EXPECT_TRUE(reader().operate(pane, u"choose app"_s));
        EXPECT_TRUE(reader().operate(find(u"list item "_s + app)));
        EXPECT_TRUE(reader().operate(find(u"push button Choose"_s)));
    };

    EXPECT_TRUE(reader().operate(find(u"push button New Empty Layout"_s)));
    const Accessible whole = find(u"list item Empty"_s);
    EXPECT_EQ(whole.within, u"list Layout, picture"_s);
    EXPECT_EQ(reader().description(whole), u"DUMMY0, 100 by 100 percent"_s);
    EXPECT_TRUE(reader().operate(whole, u"split columns"_s));
    find(u"slider Edge between Empty and Empty"_s);
    choose(find(u"list item Empty"_s), u"Running, corvane.test.amber"_s);
    const Accessible left = find(u"list item corvane.test.amber"_s);
    EXPECT_TRUE(comesTo(left, Accessible::focused));
    EXPECT_FALSE(reader().is(find(u"list Layout, picture"_s), Accessible::focused));
    choose(find(u"list item Empty"_s), u"corvane.test.birch"_s);
    reader().setValue(find(u"slider Edge between corvane.test.amber and corvane.test.birch"_s), 30);
    const Accessible right = find(u"list item corvane.test.birch"_s);
    EXPECT_TRUE(reader().operate(find(u"check box Open when not running"_s)));
    EXPECT_TRUE(waitUntil([&] {
        return reader().description(left) == u"DUMMY0, left, 30 by 100 percent"_s;
    })) << reader().description(left).toStdString();
    EXPECT_TRUE(reader().operate(find(u"push button Apply"_s)));

    EXPECT_TRUE(rests(amber, Geometry::frame({0, 0, 0.3, 1}, standardDisplay, gap)));
    const QString status = u"is not running (opening it is off for this pane)"_s;
    EXPECT_EQ(find(u"panel corvane.test.birch "_s + status).within, u"panel Report"_s);
    EXPECT_TRUE(reader().operate(find(u"check box 1 placed"_s)));
    find(u"panel corvane.test.amber is in its place"_s);
    EXPECT_EQ(reader().description(right), u"DUMMY0, right, 70 by 100 percent. "_s + status);
}

} // namespace corvane::desktop
