#include "LiveDesk.h"

#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

#include <unistd.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

// sway refuses to run for root; then it runs for nobody, who gets the session's folders.
std::unique_ptr<ChildProcess> launchUnprivileged(PrivateSession &session, QStringList command)
{
    constexpr uid_t nobody = 65534;
    if (::geteuid() == 0) {
        for (const QString &path : {u""_s, u"/run"_s, u"/home"_s, u"/home/.config"_s})
            EXPECT_EQ(::chown(qPrintable(session.folder() + path), nobody, nobody), 0);
        command =
            QStringList{u"setpriv"_s, u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s}
            + command;
    }
    return session.launch(command.takeFirst(), command);
}

} // namespace

TEST(ExtensionTests, aServerWithoutRandROrXResourceHasOneDisplayOnWhichEverythingWorks)
{
    for (const auto &missing : {u"RANDR"_s, u"X-Resource"_s}) {
        SCOPED_TRACE(qPrintable(missing));
        const Rect display{0, 0, 1920, 1080};
        const auto desk = VirtualDesktop::start({.displays = {display}, .without = {missing}});
        ASSERT_TRUE(desk) << qPrintable(desk.error());
        const auto manager = WindowManagerProcess::start(**desk, u"openbox"_s);
        ASSERT_TRUE(manager) << qPrintable(manager.error());
        CorvaneProcess corvane(**desk, programUnderTest());
        ASSERT_TRUE(corvane.start()) << qPrintable((*desk)->logs());
        TestClient client(**desk);
        WindowProbe probe((*desk)->connection());
        const xcb_window_t window = client.show({});
        Pager((*desk)->connection()).activate(window);
        ASSERT_TRUE(waitUntil([&] { return probe.activeWindow() == window; }));

        EXPECT_EQ(corvane.place(u"rightHalf"_s).name(), u"moved");
        KeyPresser((*desk)->connection()).press(shortcuts.front().second);

        EXPECT_TRUE(probe.waitForFrame(window, frameOf(shortcuts.front().first, display)));
    }
}

// A Wayland compositor without a screen, with Xwayland for X11 programs.
TEST(WaylandTests, theProgramSaysWhatItCannotDo)
{
    if (QStandardPaths::findExecutable(u"sway"_s).isEmpty())
        GTEST_SKIP() << "sway is not installed";
    PrivateSession session;
    ASSERT_EQ(session.startBus(), QString());
    QFile displays(session.folder() + u"/displays"_s);
    QFile configuration(session.folder() + u"/sway.conf"_s);
    ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
    // Lets the tests in when the compositor runs for another user.
    configuration.write(u"xwayland force\nexec sh -c 'xhost +local: && echo $DISPLAY "
                        "$WAYLAND_DISPLAY > %1.new && mv %1.new %1'\n"_s.arg(displays.fileName())
                            .toUtf8());
    configuration.close();
    session.setVariable(u"WLR_BACKENDS"_s, u"headless"_s);
    session.setVariable(u"WLR_RENDERER"_s, u"pixman"_s);
    session.setVariable(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
    session.setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    const auto sway = launchUnprivileged(session, {u"sway"_s, u"-c"_s, configuration.fileName()});
    ASSERT_TRUE(waitUntil([&] { return displays.exists(); }, 3 * patience))
        << qPrintable(session.logs());
    ASSERT_TRUE(displays.open(QIODevice::ReadOnly));
    const QStringList names = QString::fromLatin1(displays.readAll()).trimmed().split(u' ');
    session.setVariable(u"DISPLAY"_s, names.value(0));
    session.setVariable(u"WAYLAND_DISPLAY"_s, names.value(1));
    CorvaneProcess corvane(session, programUnderTest());

    const auto answer = corvane.ask({u"--place"_s, u"leftHalf"_s});

    EXPECT_EQ(answer.exitStatus, 1);
    const QByteArray said = (answer.output + answer.errors).trimmed();
    EXPECT_TRUE(said.contains("Wayland") && said.endsWith('.') && !said.contains('\n'))
        << said.constData();
}

} // namespace corvane::desktop
