#include "ScreenReaderTests.h"

#include <QtCore/QJsonArray>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr KeyStroke tab{0, Key::tab};
constexpr KeyStroke enter{0, Key::enter};

/// A user's first start.
class TourTests : public ScreenReaderTests
{
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(ScreenReaderTests::SetUp());
        corvane().stop();
        QFile::remove(pathOf(settingsFile));
    }

    [[nodiscard]] QList<quint32> ownWindows() { return hand().windowsOf(corvane().pid()); }
    /// The program's only window, or that which is there beside another one, once it is in front.
    quint32 waitForWindow(const QList<quint32> &besides = {})
    {
        const quint32 window = hand().waitForWindow(corvane().pid(), besides);
        EXPECT_TRUE(waitUntil([&] { return hand().activeWindow() == window; })) << "not in front";
        return window;
    }
    /// It answers once it has dealt with the keys that were pressed before.
    void press(const QList<KeyStroke> &strokes)
    {
        for (const KeyStroke &stroke : strokes)
            keys().press(stroke);
        EXPECT_EQ(corvane().ask({u"--print-settings"_s}).exitStatus, 0);
    }
    [[nodiscard]] bool isSeen() { return contents(settingsFile)[u"onboardingCompleted"].toBool(); }
};

using TourReaderTests = TourTests;

} // namespace

TEST_F(TourTests, comesOnceInFrontAndMovesNothingButItsPracticeWindowUntilItIsOver)
{
    const quint32 users = showFocused();
    const Rect place = frame(users);
    ASSERT_TRUE(corvane().start(CorvaneProcess::Tour::unseen)) << qPrintable(session().logs());

    const quint32 tour = waitForWindow();
    // From then on it does not come to the front again by itself.
    EXPECT_EQ(corvane().ask({u"--tour-page"_s, u"2"_s}).exitStatus, 0);
    EXPECT_TRUE(waitUntil([&] { return hand().activeWindow() == tour; }));
    ASSERT_TRUE(focus(users));
    EXPECT_TRUE(lands(users, Placement::leftHalf));
    LiveTests::press(Placement::snapBack);
    EXPECT_TRUE(rests(users, place));
    ASSERT_TRUE(focus(tour));
    const Rect opened = frame(tour);
    const KeyStroke next{0, Key::pageDown};
    press({{0, Key::escape}, {0, Key::pageUp}, next, next, next, tab, tab, enter});

    const quint32 practice = waitForWindow({tour});
    const Rect small = frame(practice);
    EXPECT_TRUE(lands(practice, Placement::leftHalf));
    if (!isManager({u"i3"_s})) { // which sizes windows in ways of its own
        LiveTests::press(Placement::leftHalf);
        EXPECT_TRUE(rests(practice, Geometry::frame({0, 0, 2.0 / 3, 1}, standardDisplay, 0)));
        LiveTests::press(Placement::snapBack);
        LiveTests::press(Placement::snapBack);
        EXPECT_TRUE(rests(practice, small));
    }
    press({{0, Key::escape}});
    EXPECT_TRUE(waitUntil([&] { return ownWindows() == QList{tour}; }));
    EXPECT_TRUE(waitUntil([&] { return hand().activeWindow() == tour; }));
    EXPECT_EQ(frame(tour), opened);
    EXPECT_EQ(frame(users), place);
    EXPECT_FALSE(isSeen());
    press({next, enter});
    EXPECT_TRUE(waitUntil([&] { return ownWindows().isEmpty(); }));
    EXPECT_TRUE(isSeen());

    corvane().stop();
    ASSERT_TRUE(corvane().start(CorvaneProcess::Tour::unseen));
    EXPECT_EQ(corvane().ask({u"--layouts"_s}).exitStatus, 0);
    EXPECT_TRUE(ownWindows().isEmpty());
    EXPECT_TRUE(corvane().log().filter(u"did not quit"_s).isEmpty()) << "it was asked to end";
    EXPECT_EQ(corvane().ask({u"--tour-page"_s, u"6"_s}).exitStatus, 2);
    EXPECT_EQ(corvane().ask({u"--show-tour"_s}).exitStatus, 0);
    hand().close(waitForWindow());
    EXPECT_TRUE(waitUntil([&] { return ownWindows().isEmpty(); }));
}

TEST_F(TourReaderTests, aScreenReaderIsLedThroughAllPagesAndTakesKeysThatAreFree)
{
    edit(settingsFile, R"({"cycling": false})");
    XConnection rival(desktop().environment().value(u"DISPLAY"_s));
    const auto grab = [&](Key key) {
        constexpr quint16 bits = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;
        constexpr quint8 evdevOffset = 8;
        xcb_grab_key(rival.raw(), false, rival.root(), bits, quint8(key) + evdevOffset,
            XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        rival.sync();
    };
    grab(Key::left);
    grab(Key::m);
    startReader();
    ASSERT_TRUE(corvane().start(CorvaneProcess::Tour::unseen)) << qPrintable(desktop().logs());
    const quint32 tour = waitForWindow();
    const auto turnTo = [&](const QString &title) {
        EXPECT_TRUE(reader().operate(find(u"push button Continue"_s)));
        EXPECT_TRUE(comesTo(find(u"label "_s + title), Accessible::focused));
    };

    EXPECT_EQ(find(u"label WINDOWS WHERE YOU WANT THEM"_s).within, u"frame Welcome to Corvane"_s);
    EXPECT_TRUE(comesTo(find(u"push button Continue"_s), Accessible::focused));
    turnTo(u"MOVING WINDOWS"_s);
    turnTo(u"ALL CLEAR"_s);
    turnTo(u"A KEY FOR EVERY PLACE"_s);
    find(u"label Left Half: another program holds Control Alt Super Left Arrow. Free: "
         "Alt Super Left Arrow"_s);
    find(u"label Maximize: another program holds Control Alt Super M. Free: Alt Super M"_s);
    EXPECT_TRUE(reader().operate(find(u"push button Take It for Left Half"_s)));
    EXPECT_TRUE(reader().operate(find(u"push button Try It"_s)));
    const quint32 practice = waitForWindow({tour});
    keys().press({KeyStroke::alt | KeyStroke::super, Key::left});
    EXPECT_TRUE(rests(practice, frameOf(Placement::leftHalf, standardDisplay)));
    find(u"label Done: Press Alt Super Left Arrow for the left half"_s);
    LiveTests::press(Placement::snapBack);
    find(u"label That is all there is to it"_s);
    EXPECT_TRUE(reader().operate(find(u"push button Back to the Tour"_s)));
    find(u"push button Try It"_s); // the page has been made anew
    EXPECT_TRUE(reader().operate(find(u"link Settings → Shortcuts"_s)));
    find(u"push button Left Half shortcut"_s);
    EXPECT_TRUE(reader().operate(find(u"push button Take It for Maximize"_s)));
    ASSERT_TRUE(focus(tour));
    turnTo(u"A WHOLE DESK, ONE SHORTCUT"_s);
    EXPECT_TRUE(reader().operate(find(u"push button Done"_s)));
    EXPECT_TRUE(waitUntil([&] { return isSeen(); }));
}

} // namespace corvane::desktop
