#include "LiveDesk.h"

#include <QtCore/QFile>

#include <cmath>
#include <signal.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr KeyStroke tab{0, Key::tab};
constexpr KeyStroke space{0, Key::space};
constexpr quint8 plain = strokes::plain;

class SettingsTests : public LiveTests
{
protected:
    // The next test finds the shortcuts as they are from the start.
    void TearDown() override
    {
        LiveTests::TearDown();
        corvane().stop();
        session().setVariable(u"QT_SCALE_FACTOR"_s, {});
        QFile::remove(settingsPath());
    }

    QString settingsPath() { return session().dataFolder() + u"/Corvane/settings.json"_s; }
    /// Opens the window on a pane, by a second start.
    quint32 open(const QString &pane)
    {
        EXPECT_EQ(corvane().ask({u"--pane"_s, pane}).exitStatus, 0);
        const quint32 window = hand().waitForWindow(corvane().pid(), {});
        EXPECT_TRUE(waitUntil([&] { return hand().activeWindow() == window; })) << "not in front";
        return window;
    }
    [[nodiscard]] quint32 workspaceOf(xcb_window_t window)
    {
        return desktop().connection().numbers(window, "_NET_WM_DESKTOP").value(0);
    }
    /// Has the first row record, by keys alone: over the rail's button and the presets.
    void record()
    {
        const qsizetype seen = corvane().log().size();
        for (const KeyStroke &stroke : {tab, tab, tab, space})
            keys().press(stroke);
        EXPECT_TRUE(corvane().waitForLog(u"no hot key while"_s, seen));
        // It answers once it has dealt with the key, and so has the keyboard.
        EXPECT_EQ(corvane().ask({u"--print-settings"_s}).exitStatus, 0);
    }
    /// What its last line about hot keys says, once it is another one than before.
    [[nodiscard]] testing::AssertionResult isReady(qsizetype seen, const QString &text)
    {
        if (corvane().waitForLog(text, seen))
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << qPrintable(corvane().log().mid(seen).join(u'\n'));
    }
    [[nodiscard]] QByteArray settings()
    {
        QFile file(settingsPath());
        return file.open(QIODevice::ReadOnly) ? file.readAll().simplified() : QByteArray();
    }
};

using WaylandSettingsTests = SettingsTests;

} // namespace

TEST_F(SettingsTests, theWindowOpensOnceInTheMiddleInFrontAndObeysPlacements)
{
    const xcb_window_t users = showFocused();

    const xcb_window_t window = open(u"general"_s);

    EXPECT_TRUE(probe().hasClass(window, "corvane"));
    EXPECT_FALSE(desktop().connection().numbers(window, "_NET_WM_ICON").isEmpty());
    const Rect opened = frame(window);
    constexpr double titleBar = 40;
    if (!isManager({u"i3"_s})) { // which tiles
        EXPECT_LE(std::abs(opened.midX() - standardDisplay.midX()), titleBar / 2);
        EXPECT_LE(std::abs(opened.midY() - standardDisplay.midY()), titleBar / 2);
    }
    ASSERT_TRUE(focus(users));
    if (!isManager({u"i3"_s, u"marco"_s, u"metacity"_s})) { // whose workspaces are set elsewhere
        pager().setWorkspaceCount(2);
        pager().moveToWorkspace(window, 1);
        ASSERT_TRUE(waitUntil([&] { return workspaceOf(window) == 1U; }));
    }
    XConnection launcher(desktop().environment().value(u"DISPLAY"_s));
    const quint32 events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(launcher.raw(), launcher.root(), XCB_CW_EVENT_MASK, &events);
    launcher.sync();
    desktop().setVariable(u"DESKTOP_STARTUP_ID"_s, u"panel-of-somebody-1_TIME1"_s);
    EXPECT_EQ(open(u"about"_s), window);
    desktop().setVariable(u"DESKTOP_STARTUP_ID"_s, {});
    QByteArray told;
    EXPECT_TRUE(waitUntil([&] {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(launcher.raw())}) {
            const auto &message = reinterpret_cast<xcb_client_message_event_t &>(*event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE && message.format == 8)
                told.append(reinterpret_cast<const char *>(message.data.data8), 20);
        }
        return told.contains("remove: ID=panel-of-somebody-1_TIME1");
    })) << told.toStdString();
    EXPECT_TRUE(waitUntil([&] { return workspaceOf(window) == workspaceOf(users); }));
    EXPECT_TRUE(lands(window, Placement::leftHalf));
    press(Placement::snapBack);
    EXPECT_TRUE(rests(window, opened));
    pager().close(window);
    EXPECT_TRUE(waitUntil([&] { return !probe().clients().contains(window); }));
    ASSERT_TRUE(focus(users));
    EXPECT_TRUE(lands(users, Placement::leftHalf));
}

TEST_F(SettingsTests, whatASpaceShowsOverTheDesktopIsInNobodysWay)
{
    if (isManager({u"fluxbox"_s}))
        GTEST_SKIP() << "no window hears a click, since these tests give it no bindings";
    // In points of which some are two pixels and some are one.
    corvane().stop();
    desktop().setVariable(u"QT_SCALE_FACTOR"_s, u"1.25"_s);
    ASSERT_TRUE(corvane().start());
    const bool tiles = isManager({u"i3"_s});
    const xcb_window_t users = showFocused();
    const Rect place = frame(users);
    ASSERT_EQ(corvane().ask({u"--capture"_s, u"Desk"_s}).exitStatus, 0);
    const xcb_window_t window = open(u"layouts"_s);
    const auto shows = [&](const QList<Rect> &frames) {
        QList<Rect> shown;
        const bool isSo = waitUntil([&] {
            shown.clear();
            for (const xcb_window_t each : probe().openTips(corvane().pid()))
                shown << probe().clientGeometry(each).value_or(Rect());
            return shown == frames;
        });
        return (isSo ? testing::AssertionSuccess() : testing::AssertionFailure())
            << testing::PrintToString(shown) << ", not " << testing::PrintToString(frames);
    };
    const QList<xcb_window_t> managed = probe().clients();
    const Rect settings = frame(window);
    keys().click({settings.x + 375, settings.maxY() - 75}); // below the list's rows

    keys().key(Key::space, true);
    EXPECT_TRUE(shows({place}));
    EXPECT_EQ(probe().clients(), managed);
    EXPECT_EQ(probe().activeWindow(), window);
    keys().key(Key::space, false);
    EXPECT_TRUE(shows({}));

    keys().key(Key::space, true);
    EXPECT_TRUE(shows({place}));
    const QList<xcb_window_t> tips = probe().openTips(corvane().pid());
    EXPECT_TRUE(tiles || lands(window, Placement::rightHalf));
    EXPECT_EQ(probe().openTips(corvane().pid()), tips) << "it flickers while the key repeats";
    XConnection hand(desktop().environment().value(u"DISPLAY"_s));
    const quint32 presses = XCB_EVENT_MASK_BUTTON_PRESS;
    xcb_change_window_attributes(hand.raw(), users, XCB_CW_EVENT_MASK, &presses);
    hand.sync();
    keys().click({place.x + 50, place.midY()});
    EXPECT_TRUE(waitUntil([&] {
        const Reply<xcb_generic_event_t> event{xcb_poll_for_event(hand.raw())};
        return event && (event->response_type & 0x7f) == XCB_BUTTON_PRESS;
    })) << "a click is caught";
    ASSERT_TRUE(focus(users));
    EXPECT_TRUE(shows({}));
    keys().key(Key::space, false);
}

TEST_F(SettingsTests, recordedKeysWorkAtOnceWhoeverHeldThem)
{
    const xcb_window_t users = showFocused();
    XConnection &connection = desktop().connection();
    constexpr quint8 evdevOffset = 8;
    constexpr quint8 c = quint8(Key::c) + evdevOffset;
    xcb_grab_key(connection.raw(), false, connection.root(), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1,
        c, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    connection.sync();
    struct Case {
        KeyStroke stroke;
        QByteArray saved;
        QString ready;
        bool isAsked = false; ///< whether to take them from another placement
    };
    const Case cases[]{{{plain, Key::c}, "\"keyCode\": 8,", u"20 of 21"_s},
        {{strokes::hyper, Key::right}, "\"keyCode\": 124,", u"20 of 20"_s, true},
        {{plain, Key::o}, "\"keyCode\": 31,", u"20 of 20"_s}};
    for (const Key lock : {Key::capsLock, Key::numLock})
        ASSERT_TRUE(desktop().keys().toggle(lock));
    for (const auto &[stroke, saved, ready, isAsked] : cases) {
        const xcb_window_t window = open(u"shortcuts"_s);
        record();
        const Rect before = frame(window);
        const qsizetype seen = corvane().log().size();
        keys().press(stroke);
        if (isAsked) {
            ASSERT_TRUE(waitUntil([&] {
                return !QList{window, users, xcb_window_t(0)}.contains(probe().activeWindow());
            }));
            keys().press({0, Key::enter});
        }
        EXPECT_TRUE(isReady(seen, ready));
        EXPECT_TRUE(settings().contains("\"leftHalf\", { " + saved)) << settings().toStdString();
        EXPECT_EQ(frame(window), before) << "a key that was recorded was obeyed";
        pager().close(window);
        ASSERT_TRUE(waitUntil([&] { return !probe().clients().contains(window); }));
    }
    for (const Key lock : {Key::capsLock, Key::numLock})
        ASSERT_TRUE(desktop().keys().toggle(lock));
    xcb_ungrab_key(connection.raw(), c, connection.root(), XCB_MOD_MASK_ANY);

    ASSERT_TRUE(focus(users));
    keys().press({plain, Key::o});
    EXPECT_TRUE(rests(users, frameOf(Placement::leftHalf, standardDisplay)));
}

TEST_F(SettingsTests, howeverARecordingEndsTheKeysWorkAfterwards)
{
    const xcb_window_t users = showFocused();
    const std::function<void(xcb_window_t)> ends[]{[this](xcb_window_t) {
                                                       keys().press({0, Key::escape});
                                                   },
        [this](xcb_window_t window) { pager().close(window); },
        [&](xcb_window_t) { pager().activate(users); },
        [this](xcb_window_t) {
            kill(corvane().pid(), SIGKILL);
            EXPECT_TRUE(waitUntil([this] { return !corvane().isRunning(); }));
            EXPECT_TRUE(corvane().start());
        }};
    for (const auto &end : ends) {
        const xcb_window_t window = open(u"shortcuts"_s);
        record();
        const qsizetype seen = corvane().log().size();

        end(window);

        const bool isNewRun = corvane().log().size() < seen;
        EXPECT_TRUE(isReady(isNewRun ? 0 : seen, u"hot keys registered"_s));
        ASSERT_TRUE(focus(users));
        EXPECT_TRUE(lands(users, Placement::maximize));
        press(Placement::snapBack);
    }
}

TEST_F(WaylandSettingsTests, theWindowOpensInTheMiddleAndComesToTheUsersWorkspace)
{
    const quint32 window = open(u"general"_s);
    const auto isInTheMiddle = [&] {
        const Rect now = frame(window);
        return std::abs(now.midX() - standardDisplay.midX()) <= 1
            && std::abs(now.midY() - standardDisplay.midY()) <= 1;
    };
    EXPECT_TRUE(waitUntil(isInTheMiddle)) << testing::PrintToString(frame(window));
    const auto isHere = [&] { return hand().window(window).value_or(SeenWindow()).isHere; };
    hand().moveElsewhere(window);
    const quint32 users = showFocused();
    ASSERT_TRUE(waitUntil([&] { return !isHere(); }));

    EXPECT_EQ(open(u"about"_s), window);
    EXPECT_TRUE(waitUntil(isHere));
    EXPECT_TRUE(hand().window(users)->isHere);
}

TEST_F(WaylandSettingsTests, theWindowOpensInFrontAndRecordsKeysThatTheDesktopWouldObey)
{
    if (isSway()) {
        ASSERT_TRUE(waylandDesktop().reload(u"bindsym --to-code Mod4+Up fullscreen enable\n"_s));
    }
    const quint32 users = showFocused();
    const quint32 window = open(u"shortcuts"_s);
    EXPECT_TRUE(hand().window(window)->application.contains(u"corvane"_s, Qt::CaseInsensitive));
    const Rect before = frame(window);
    record();

    keys().press({KeyStroke::super, Key::up});

    const auto isSaved = [&] { return settings().contains("\"leftHalf\", { \"keyCode\": 126,"); };
    EXPECT_TRUE(waitUntil(isSaved)) << settings().toStdString();
    EXPECT_EQ(frame(window), before) << "the desktop obeyed it";
    hand().close(window);
    ASSERT_TRUE(waitUntil([&] { return !hand().window(window); }));
    ASSERT_TRUE(focus(users));
    EXPECT_TRUE(lands(users, Placement::rightHalf)) << "keys are heard again";
}

} // namespace corvane::desktop
