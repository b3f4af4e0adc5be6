#include "Desk.h"

#include <QtCore/QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr Rect opened{50, 60, 400, 300};
constexpr Rect elsewhere{500, 400, 300, 200};

class WindowWatcherTests : public testing::Test
{
protected:
    WindowWatcherTests()
    {
        desk.watcher.onDiagnostic = [this](const QString &text) { told << text; };
    }

    std::optional<Rect> original(const AXWindow &window) { return desk.watcher.original(window); }

    pid_t startOther() { return desk.desktop.start(u"org.example.Other"_s, u"Other"_s); }

    void openMany(pid_t pid, int count)
    {
        for (int i = 0; i < count; ++i)
            desk.openFrom(pid);
    }

    Desk desk;
    QStringList told;
};

} // namespace

TEST_F(WindowWatcherTests, windowsOpenBeforehandAreKnownByTheirFrameAtTheStart)
{
    const AXWindow window = desk.open({.frame = opened});
    EXPECT_EQ(original(window), std::nullopt);

    desk.watcher.start();
    desk.drag(window, elsewhere);
    desk.watcher.restart();

    EXPECT_EQ(original(window), opened);
}

TEST_F(WindowWatcherTests, aNewWindowIsKnownByTheFrameItHasOnceSettled)
{
    desk.open();
    desk.watcher.start();
    const AXWindow window = desk.open({.frame = opened});

    desk.advance(399ms);
    EXPECT_EQ(original(window), std::nullopt);
    desk.drag(window, elsewhere);
    desk.advance(1ms);
    EXPECT_EQ(original(window), elsewhere);

    desk.drag(window, opened);
    desk.advance(1s);
    EXPECT_EQ(original(window), elsewhere);
}

TEST_F(WindowWatcherTests, theFirstSightingWins)
{
    desk.open();
    desk.watcher.start();
    const AXWindow window = desk.open({.frame = opened});
    desk.advance(100ms);
    desk.watcher.restart();
    desk.drag(window, elsewhere);
    desk.advance(1s);

    EXPECT_EQ(original(window), opened);
}

TEST_F(WindowWatcherTests, onlyStandardWindowsThatAreStillThereCount)
{
    desk.open();
    desk.watcher.start();
    desk.open({.kind = WindowKind::dialog});
    desk.open({.kind = WindowKind::panel});
    const AXWindow brief = desk.open();
    desk.advance(200ms);
    desk.desktop.closeWindow(brief.element);
    desk.advance(1s);

    EXPECT_EQ(desk.watcher.count(), 1);
}

TEST_F(WindowWatcherTests, anApplicationLaunchedLaterIsWatchedFromItsFirstWindow)
{
    desk.watcher.start();
    const AXWindow window = desk.open({.frame = opened});
    desk.advance(400ms);

    EXPECT_EQ(original(window), opened);
}

TEST_F(WindowWatcherTests, anApplicationThatQuitsIsForgotten)
{
    const pid_t other = startOther();
    const AXWindow kept = desk.open({.frame = opened});
    const AXWindow gone = desk.openFrom(other);
    desk.watcher.start();
    ASSERT_EQ(desk.watcher.count(), 2);

    desk.desktop.quit(other);
    desk.platform.deliver();

    EXPECT_EQ(original(kept), opened);
    EXPECT_EQ(original(gone), std::nullopt);
    EXPECT_FALSE(desk.platform.windows().isObserving(other));
}

TEST_F(WindowWatcherTests, anEndThatIsToldBeforeItsWindowsCloseForgetsThemToo)
{
    desk.open();
    desk.watcher.start();

    Q_EMIT desk.platform.applications().terminated(desk.editor);

    EXPECT_EQ(desk.watcher.count(), 0);
}

TEST_F(WindowWatcherTests, aClosedWindowIsForgottenAndItsNumberMeansAnotherWindow)
{
    const AXWindow first = desk.open({.frame = opened, .number = 77});
    desk.watcher.start();
    desk.desktop.closeWindow(first.element);
    const AXWindow second = desk.open({.frame = elsewhere, .number = 77});
    desk.platform.deliver();
    EXPECT_EQ(desk.watcher.count(), 0);
    desk.advance(1s);

    EXPECT_EQ(original(second), elsewhere);
    EXPECT_EQ(original(first), std::nullopt);
}

TEST_F(WindowWatcherTests, withoutTrustNothingStartsAndALaterStartDoes)
{
    const AXWindow window = desk.open({.frame = opened});
    desk.desktop.loseTrust();
    desk.watcher.start();
    EXPECT_FALSE(desk.platform.windows().isObserving(desk.editor));

    desk.desktop.regainTrust();
    desk.watcher.start();

    EXPECT_EQ(original(window), opened);
}

TEST_F(WindowWatcherTests, whatWasKnownOutlivesALossOfTrust)
{
    const AXWindow window = desk.open({.frame = opened});
    desk.watcher.start();
    desk.drag(window, elsewhere);

    desk.desktop.loseTrust();
    desk.watcher.restart();
    EXPECT_FALSE(desk.platform.windows().isObserving(desk.editor));
    const AXWindow unseen = desk.open({.frame = elsewhere});
    desk.desktop.regainTrust();
    desk.watcher.restart();

    EXPECT_EQ(original(window), opened);
    EXPECT_EQ(original(unseen), elsewhere);
    EXPECT_TRUE(desk.platform.windows().isObserving(desk.editor));
}

TEST_F(WindowWatcherTests, restartingDoesNotMultiplyTheNotices)
{
    desk.open();
    desk.watcher.start();
    desk.watcher.start();
    desk.watcher.restart();
    desk.advance(1s);
    desk.open();
    const int before = desk.platform.windows().operationCount();

    desk.advance(1s);

    EXPECT_EQ(desk.platform.windows().operationCount() - before, 1);
}

TEST_F(WindowWatcherTests, fourThousandAreKeptAndOneMoreLeavesTwoThousand)
{
    openMany(desk.editor, 4000);
    desk.watcher.start();
    desk.platform.deliver();
    EXPECT_EQ(desk.watcher.count(), 4000);
    EXPECT_THAT(told, IsEmpty());

    desk.open();
    desk.advance(400ms);

    EXPECT_EQ(desk.watcher.count(), 2000);
    EXPECT_THAT(told, ElementsAre(u"window watcher pruned to 2000"_s));
}

TEST_F(WindowWatcherTests, pruningFirstDropsWhatCanNoLongerBeRead)
{
    const pid_t other = startOther();
    openMany(desk.editor, 1000);
    openMany(other, 3000);
    desk.watcher.start();
    desk.platform.deliver();
    desk.desktop.application(other).hung = true;

    desk.open();
    desk.advance(400ms);

    EXPECT_EQ(desk.watcher.count(), 1001);
    EXPECT_THAT(told, ElementsAre(u"window watcher pruned to 1001"_s));
}

TEST(WindowWatcherOnAnotherDesktopTests, startsAnewThere)
{
    WindowWatcher watcher;
    auto first = std::make_unique<Desk>();
    first->open();
    watcher.start();
    ASSERT_EQ(watcher.count(), 1);
    first.reset();

    Desk second;
    watcher.restart();
    EXPECT_EQ(watcher.count(), 0);
    const AXWindow window = second.open({.frame = opened});
    second.advance(1s);

    EXPECT_EQ(watcher.original(window), opened);
}

} // namespace corvane
