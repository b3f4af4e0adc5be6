#include "LiveDesk.h"

#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

#include <unistd.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

// A Wayland compositor without a screen, with Xwayland for X11 programs.
class WaylandTests : public testing::Test
{
protected:
    void SetUp() override
    {
        if (QStandardPaths::findExecutable(u"sway"_s).isEmpty())
            GTEST_SKIP() << "sway is not installed";
        ASSERT_EQ(session.startBus(), QString());
        const QString displays = session.folder() + u"/displays"_s;
        QFile configuration(session.folder() + u"/sway.conf"_s);
        ASSERT_TRUE(configuration.open(QIODevice::WriteOnly));
        // Lets the tests in when the compositor runs for another user.
        configuration.write(u"xwayland force\nexec sh -c 'xhost +local: && echo $DISPLAY "
                            "$WAYLAND_DISPLAY > %1.new && mv %1.new %1'\n"_s.arg(displays)
                                .toUtf8());
        configuration.close();
        session.setVariable(u"WLR_BACKENDS"_s, u"headless"_s);
        session.setVariable(u"WLR_RENDERER"_s, u"pixman"_s);
        session.setVariable(u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s);
        session.setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
        sway = launchUnprivileged({u"sway"_s, u"-c"_s, configuration.fileName()});
        ASSERT_TRUE(waitUntil([&] { return QFile::exists(displays); }))
            << qPrintable(session.logs());
        QFile file(displays);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QList<QByteArray> names = file.readAll().trimmed().split(' ');
        ASSERT_EQ(names.size(), 2);
        session.setVariable(u"DISPLAY"_s, QString::fromLatin1(names[0]));
        session.setVariable(u"WAYLAND_DISPLAY"_s, QString::fromLatin1(names[1]));
        connection = std::make_unique<XConnection>(QString::fromLatin1(names[0]));
        ASSERT_TRUE(connection->isValid());
    }

    // sway refuses to run for root; then it runs for nobody, who gets the session's folders.
    std::unique_ptr<ChildProcess> launchUnprivileged(QStringList command)
    {
        constexpr uid_t nobody = 65534;
        if (::geteuid() == 0) {
            for (const QString &path : {u""_s, u"/run"_s, u"/home"_s, u"/home/.config"_s})
                EXPECT_EQ(::chown(qPrintable(session.folder() + path), nobody, nobody), 0);
            command = QStringList{u"setpriv"_s, u"--reuid=%1"_s.arg(nobody),
                          u"--regid=%1"_s.arg(nobody), u"--clear-groups"_s}
                + command;
        }
        return session.launch(command.takeFirst(), command);
    }

    PrivateSession session;
    std::unique_ptr<ChildProcess> sway;
    std::unique_ptr<XConnection> connection;
};

} // namespace

TEST_F(WaylandTests, theProgramSaysWhatItCannotDoAndMovesNothing)
{
    TestClient client(session, *connection);
    const xcb_window_t window = client.open({});
    WindowProbe probe(*connection);
    ASSERT_TRUE(waitUntil([&] { return probe.isViewable(window); })) << qPrintable(session.logs());
    const auto before = settled([&] { return probe.clientGeometry(window); });
    CorvaneProcess corvane(session, programUnderTest());

    const auto answer = corvane.ask({u"--place"_s, u"leftHalf"_s});

    EXPECT_EQ(answer.exitStatus, 1);
    const QByteArray said = answer.output + answer.errors;
    EXPECT_EQ(said.trimmed().count('\n'), 0) << said.constData();
    EXPECT_TRUE(said.contains("Wayland")) << said.constData();
    EXPECT_TRUE(said.trimmed().endsWith('.')) << said.constData();
    EXPECT_EQ(settled([&] { return probe.clientGeometry(window); }), before);
}

} // namespace corvane::desktop
