#include "LiveDesk.h"

#include <QtCore/QFile>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

/// On a server without an extension.
class ExtensionTests : public LiveTests, public testing::WithParamInterface<const char *>
{
protected:
    void SetUp() override
    {
        endDesk();
        s_without = {QString::fromLatin1(GetParam())};
        LiveTests::SetUp();
    }
    void TearDown() override
    {
        LiveTests::TearDown();
        endDesk();
        s_without.clear();
    }
};

} // namespace

TEST_P(ExtensionTests, aServerWithoutItHasOneDisplayOnWhichEverythingWorks)
{
    const xcb_window_t window = showFocused();

    EXPECT_TRUE(lands(window, Placement::leftHalf));
    EXPECT_EQ(place(Placement::rightHalf).name(), u"moved");
    EXPECT_TRUE(rests(window, frameOf(Placement::rightHalf, standardDisplay)));
}

INSTANTIATE_TEST_SUITE_P(Without, ExtensionTests, testing::Values("RANDR", "X-Resource"));

// Sessions often end so.
TEST(DisplayEndTests, aProgramWhoseDisplayEndsHasNotCrashed)
{
    const auto desktop = VirtualDesktop::start({});
    ASSERT_TRUE(desktop) << qPrintable(desktop.error());
    CorvaneProcess corvane(**desktop, QStringLiteral(CORVANE_PROGRAM));
    const QString mark = (*desktop)->dataFolder() + u"/Corvane/running"_s;
    ASSERT_TRUE(corvane.start()) << qPrintable((*desktop)->logs());
    ASSERT_EQ(corvane.ask({u"--open-settings"_s}).exitStatus, 0);
    EXPECT_TRUE(QFile::exists(mark));

    (*desktop)->server().kill();

    EXPECT_TRUE(waitUntil([&] { return !corvane.isRunning(); }));
    EXPECT_FALSE(QFile::exists(mark)) << qPrintable((*desktop)->logs());
}

// A Wayland compositor without a screen, with Xwayland for X11 programs.
TEST(WaylandTests, theProgramSaysWhatItCannotDo)
{
    PrivateSession session;
    ASSERT_EQ(session.startBus(), QString());
    session.setVariable(u"XDG_SESSION_TYPE"_s, u"wayland"_s);
    QFile said(session.folder() + u"/said"_s);
    // By the X server alone, and without one.
    const QString script =
        QStringLiteral("for each in WAYLAND_DISPLAY DISPLAY; do env -u $each " CORVANE_PROGRAM
                       " --place leftHalf; echo $?; done > %1 2>&1");

    const auto compositor = session.launch(u"mutter"_s,
        {u"--wayland"_s, u"--headless"_s, u"--virtual-monitor"_s, u"800x600"_s, u"--"_s, u"sh"_s,
            u"-c"_s, script.arg(said.fileName())});

    ASSERT_TRUE(compositor->waitForExit(6 * patience)) << qPrintable(session.logs());
    ASSERT_TRUE(said.open(QIODevice::ReadOnly)) << qPrintable(session.logs());
    const QByteArray all = said.readAll();
    EXPECT_TRUE(
        all.count("Wayland session") == 2 && all.count(".\n1\n") == 2 && all.count('\n') == 4)
        << all.constData();
}

} // namespace corvane::desktop
