#include "LiveDesk.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

class WindowManagerChangeTests : public LiveTests
{
protected:
    void startManager(const QString &name,
        WindowManagerProcess::Takeover takeover = WindowManagerProcess::Takeover::none)
    {
        auto process = WindowManagerProcess::start(desktop(), name, takeover);
        ASSERT_TRUE(process) << qPrintable(process.error());
        if (takeover == WindowManagerProcess::Takeover::replace) {
            ASSERT_TRUE(waitUntil([&] { return !desk().manager->isRunning(); }));
        }
        desk().manager = std::move(*process);
    }

    void expectToWorkAgain(xcb_window_t window)
    {
        ASSERT_TRUE(waitUntil([&] { return probe().isManaged(window); }));
        ASSERT_TRUE(focus(window));
        static_cast<void>(frame(window));
        for (const auto &placement : {u"rightHalf"_s, u"topLeft"_s}) {
            const Rect expected = frameOf(region(placement), standardDisplay);
            press(region(placement).stroke);
            EXPECT_EQ(reached(window, expected), expected) << qPrintable(placement);
        }
    }

    void waitUntilRemembered()
    {
        ASSERT_TRUE(waitUntil([&] { return corvane().place(u"original"_s).name() == u"moved"; }));
    }
};

} // namespace

TEST_F(WindowManagerChangeTests, withoutAWindowManagerNothingMovesAndAfterwardsEverythingWorksAgain)
{
    const xcb_window_t window = showFocused({.geometry = {310, 220, 520, 340}});
    const Rect first = frame(window);
    waitUntilRemembered();
    const QString name = desk().manager->name();
    for (const bool crashes : {false, true}) {
        SCOPED_TRACE(crashes ? "crashed" : "ended");
        press(strokes::leftHalf);
        const Rect left = frameOf(region(u"leftHalf"), standardDisplay);
        ASSERT_EQ(reached(window, left), left);

        crashes ? desk().manager->crash() : desk().manager->stop();
        const auto geometry = settled([&] { return probe().clientGeometry(window); });
        const auto answer = corvane().place(u"rightHalf"_s);

        EXPECT_TRUE(refused(answer, u"accessibility not granted"_s));
        EXPECT_EQ(answer.name(), u"notTrusted");
        EXPECT_EQ(probe().clientGeometry(window), geometry);

        startManager(name);
        expectToWorkAgain(window);
        press(strokes::original);
        EXPECT_EQ(reached(window, first), first);
    }
}

TEST_F(WindowManagerChangeTests, replacingTheWindowManagerByItselfChangesNothing)
{
    const QString name = desk().manager->name();
    if (!WindowManagerProcess::canReplace(name))
        GTEST_SKIP() << "this window manager cannot take over from a running one";
    const xcb_window_t window = showFocused({.geometry = {310, 220, 520, 340}});
    const Rect first = frame(window);
    waitUntilRemembered();

    startManager(name, WindowManagerProcess::Takeover::replace);
    if (probe().windowManagerName().isEmpty()) {
        desk().manager->stop();
        GTEST_SKIP() << "the old one took the announcement of the new one along";
    }

    expectToWorkAgain(window);
    press(strokes::original);
    EXPECT_EQ(reached(window, first), first);
}

TEST_F(WindowManagerChangeTests, anotherWindowManagerTakesOver)
{
    const QString name = desk().manager->name();
    const QString other = name == u"openbox" ? u"metacity"_s : u"openbox"_s;
    const xcb_window_t window = showFocused({.geometry = {310, 220, 520, 340}});
    if (WindowManagerProcess::canReplace(name)) {
        startManager(other, WindowManagerProcess::Takeover::replace);
    } else {
        desk().manager->stop();
        startManager(other);
    }

    expectToWorkAgain(window);

    desk().manager->stop();
    startManager(name);
    expectToWorkAgain(window);
}

} // namespace corvane::desktop
