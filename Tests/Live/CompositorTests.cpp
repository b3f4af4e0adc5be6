#include "LiveDesk.h"

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>

#include <csignal>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

using enum Placement;

/// What a Wayland compositor does to the program, and what clients do to both.
class CompositorTests : public LiveTests
{
protected:
    /// Keys are heard from some time on, so the placement must be none that goes on when it is repeated.
    testing::AssertionResult landsSoon(quint32 window, Placement placement)
    {
        const Rect target = frameOf(placement, standardDisplay);
        static_cast<void>(waitUntil(
            [&] {
                keys().press(strokeOf(placement));
                return frame(window) == target;
            },
            6 * patience));
        return rests(window, target);
    }
    bool isOnTheBus()
    {
        const QString address = session().environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s);
        const QString name = u"compositor-tests"_s;
        const auto bus = QDBusConnection::connectToBus(address, name);
        const bool isThere = bus.interface()->isServiceRegistered(u"app.corvane.Corvane"_s);
        QDBusConnection::disconnectFromBus(name);
        return isThere;
    }
    /// Of the program, and of what waits for the end of its compositor.
    QList<pid_t> processes()
    {
        QList<pid_t> pids = session().processes();
        pids.removeIf([](pid_t pid) {
            return QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid))
                != QStringLiteral(CORVANE_PROGRAM);
        });
        return pids;
    }
};

} // namespace

TEST_F(CompositorTests, everyPlacementIsExactKeysInABurstAreAllHeardAndUndoGoesBackThroughThem)
{
    const quint32 window = showFocused({.decorated = false});
    QList<Rect> stops{frame(window)};
    for (const Placement placement : allPlacements()) {
        if (!unitRect(placement))
            continue;
        stops << frameOf(placement, standardDisplay);
        EXPECT_EQ(place(placement).to(), stops.last()) << rawValue(placement).data();
        EXPECT_EQ(hand().frame(window), stops.last()) << rawValue(placement).data();
    }
    ASSERT_GE(stops.size(), 20);

    while (stops.size() <= 100) {
        for (const Placement placement : {leftHalf, topRight, leftThird, maximize, bottomRight}) {
            stops << frameOf(placement, standardDisplay);
            keys().press(strokeOf(placement));
        }
    }
    EXPECT_TRUE(rests(window, stops.last(), 6 * patience));

    while (stops.size() > 1) {
        stops.removeLast();
        keys().press(strokeOf(snapBack));
        EXPECT_TRUE(waitUntil([&] { return hand().frame(window) == stops.last(); }));
    }
    EXPECT_TRUE(rests(window, stops.first()));
}

TEST_F(CompositorTests, shortcutsOutliveAConfigurationThatIsReadAgain)
{
    if (!isSway())
        GTEST_SKIP() << "only sway forgets them";
    const quint32 window = showFocused();
    for (const Placement placement : {topLeft, bottomRight}) {
        ASSERT_TRUE(waylandDesktop().reload());
        EXPECT_TRUE(landsSoon(window, placement));
    }
}

TEST_F(CompositorTests, namesOfAnyBytesAreShownWithoutHarm)
{
    const QByteArray bytes("\xff\xfe\xc3\x28\xf0\x9f");
    const WindowRequest requests[]{
        {.title = bytes, .className = bytes},
        {.title = "\x1b]0;title\x07\x1b[31m\x7f\r\nsecond line", .className = "../../\x1b[2J\n\t"},
        {.title = "<b>&amp;<span foreground='red'>%n%s", .className = "<i>%1</i>"},
        {.title = "0123456789", .titleRepeats = 1000, .className = QByteArray(200, 'x')},
        {.title = "", .className = ""},
    };
    QList<quint32> windows;
    for (const WindowRequest &request : requests) {
        SCOPED_TRACE(QByteArray(request.title).left(20).toPercentEncoding().constData());
        WindowRequest apart = request;
        apart.geometry.x = 300.0 * double(windows.size());
        windows << showFocused(apart);
        EXPECT_TRUE(lands(windows.last(), maximize));
        press(snapBack);
    }

    for (const QStringList &question :
        {QStringList{u"--capture"_s, u"Names"_s}, {u"--layouts"_s}, {u"--history"_s}}) {
        const auto answer = corvane().ask(question);
        EXPECT_EQ(answer.exitStatus, 0) << answer.errors.toStdString();
        const QString text = QString::fromUtf8(answer.output);
        EXPECT_EQ(text.toUtf8(), answer.output);
        for (const QChar each : text)
            EXPECT_TRUE(each == u'\n' || each.isPrint()) << int(each.unicode());
        for (const QString &line : text.split(u'\n'))
            EXPECT_LT(line.size(), 500);
    }
}

TEST_F(CompositorTests, theProgramComesBackWithItsCompositorAndItsShortcutsWork)
{
    showFocused();
    for (const Placement placement : {leftHalf, bottomRight, maximize, leftThird})
        keys().press(strokeOf(placement));

    waylandDesktop().compositor().kill();
    ASSERT_TRUE(waitUntil([this] { return !corvane().isRunning(); }));
    // KWin takes two scripts for one where the hand's and the program's come and go together.
    const QList<pid_t> successors = processes();
    for (const pid_t pid : successors)
        ::kill(pid, SIGSTOP);
    const QString error = waylandDesktop().restart();
    for (const pid_t pid : successors)
        ::kill(pid, SIGCONT);

    ASSERT_TRUE(error.isEmpty()) << qPrintable(error);
    ASSERT_TRUE(waitUntil([this] { return isOnTheBus(); }, 6 * patience));
    const auto next = startClient();
    const quint32 window = next->show({});
    ASSERT_TRUE(focus(window));
    EXPECT_TRUE(landsSoon(window, topRight));
    for (const pid_t pid : processes())
        ::kill(pid, SIGTERM);
    ASSERT_TRUE(waitUntil([this] { return processes().isEmpty(); }));
    ASSERT_TRUE(corvane().start());
}

} // namespace corvane::desktop
