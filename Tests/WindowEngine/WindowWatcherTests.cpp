#include "Desk.h"

namespace corvane {

namespace {

constexpr Rect opened{50, 60, 400, 300};
constexpr Rect elsewhere{500, 400, 300, 200};

class WindowWatcherTests : public testing::Test, protected Desk
{
};

/// A window, and what the watcher is to know of it while it is open.
struct Seen {
    AXWindow window;
    Clock::Duration settled; ///< from when on
    std::optional<Rect> original = {};
};

/// What people, programs and the model do to a desk. Whether windows are watched from then on.
bool happens(Desk &desk, QList<Seen> &windows, QList<pid_t> &pids, bool isWatched)
{
    const Clock::Duration now = desk.platform.clock().now();
    const Rect frame{double(between(0, 900)), double(between(0, 500)), 400, 300};
    const int event = between(0, 8);
    if (event < 3) {
        const WindowKind kind = between(0, 3) == 0 ? WindowKind::dialog : WindowKind::standard;
        const AXWindow window = desk.openFrom(anyOf(pids), {.frame = frame, .kind = kind});
        windows << Seen{window, isWatched ? now + 400ms : Clock::Duration::max()};
    } else if (event == 3) {
        const pid_t pid = anyOf(pids);
        desk.desktop.quit(pid);
        pids.replace(pids.indexOf(pid), desk.desktop.start(Desk::mail.bundleID, u"Mail"_s));
    } else if (event == 4) {
        desk.watcher.restart();
        for (Seen &each : windows)
            each.settled = now;
        return true;
    } else if (event < 7 && !windows.isEmpty()) {
        const AXWindow window = anyOf(windows).window;
        if (desk.desktop.findWindow(window.element) && event == 5)
            desk.desktop.closeWindow(window.element);
        else if (desk.desktop.findWindow(window.element))
            desk.drag(window, frame);
    } else {
        desk.advance(between(1, 5) * 100ms - between(0, 1) * 1ms);
    }
    return isWatched;
}

} // namespace

RC_GTEST_PROP(WindowWatcherProperties, aWindowsFirstFrameIsKnownForAsLongAsItIsOpen, ())
{
    Desk desk;
    QList<Seen> windows;
    QList<pid_t> pids{desk.editor};
    bool isWatched = false;

    for (int events = between(1, 40); events > 0; --events) {
        isWatched = happens(desk, windows, pids, isWatched);
        desk.platform.deliver();

        for (Seen &each : windows) {
            const SimulatedWindow *there = desk.desktop.findWindow(each.window.element);
            const bool isKnown = there && there->kind == WindowKind::standard
                && desk.platform.clock().now() >= each.settled;
            if (isKnown && !each.original)
                each.original = there->frame;
            RC_ASSERT(desk.watcher.original(each.window)
                == (isKnown ? each.original : std::optional<Rect>()));
        }
    }
}

TEST_F(WindowWatcherTests, withoutTrustNothingStartsAndNothingIsForgotten)
{
    const AXWindow window = open({.frame = opened});
    watcher.start();
    drag(window, elsewhere);

    desktop.loseTrust();
    watcher.restart();
    EXPECT_FALSE(platform.windows().isObserving(editor));
    const AXWindow unseen = open({.frame = elsewhere});
    desktop.regainTrust();
    watcher.restart();

    EXPECT_EQ(watcher.original(window), opened);
    EXPECT_EQ(watcher.original(unseen), elsewhere);
    Q_EMIT platform.applications().terminated(editor); // before its windows close
    EXPECT_EQ(watcher.count(), 0);
    EXPECT_FALSE(platform.windows().isObserving(editor));
}

TEST_F(WindowWatcherTests, beyondFourThousandTheUnreadableGoFirstAndThenAllButTwoThousand)
{
    for (const auto &[isHung, kept] : {std::pair(false, 2000), std::pair(true, 1001)}) {
        Desk desk;
        const pid_t other = desk.desktop.start(Desk::mail.bundleID, u"Mail"_s);
        for (int i = 0; i < 4000; ++i)
            desk.openFrom(i < 1000 ? desk.editor : other);
        desk.watcher.start();
        EXPECT_EQ(desk.watcher.count(), 4000);
        desk.desktop.application(other).hung = isHung;

        desk.open();
        desk.advance(400ms);

        EXPECT_EQ(desk.watcher.count(), kept);
        EXPECT_EQ(desk.diagnostics, QStringList{u"window watcher pruned to %1"_s.arg(kept)});
    }
}

} // namespace corvane
