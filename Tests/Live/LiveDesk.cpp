#include "LiveDesk.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace corvane {

void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

} // namespace corvane

namespace corvane::desktop {

KeyStroke strokeOf(Placement placement)
{
    return std::ranges::find(shortcuts, placement, &Shortcut::first)->second;
}

Rect frameOf(Placement placement, const Rect &area)
{
    return Geometry::frame(unitRect(placement).value_or(UnitRect{}), area, 0);
}

void LiveTests::endDesk()
{
    s_corvane.reset();
    s_manager.reset();
    s_desktop.reset();
    s_wayland.reset();
}

void LiveTests::SetUp()
{
    if (!s_corvane) {
        ASSERT_NO_FATAL_FAILURE(startDesk());
    } else if (hand().displays() != QList{standardDisplay}) {
        ASSERT_TRUE(hand().arrange({standardDisplay}));
    }
    if (!isWayland()) {
        ASSERT_NO_FATAL_FAILURE(ensureManager());
    }
    ASSERT_NO_FATAL_FAILURE(startProgram());
    m_client = startClient();
}

void LiveTests::TearDown()
{
    if (!m_client)
        return;
    m_client.reset();
    EXPECT_TRUE(IsSkipped() || corvane().isRunning()) << "the program ended";
    if (HasFailure())
        std::fprintf(stderr, "%s\n", qPrintable(session().logs(3000)));
}

void LiveTests::startDesk()
{
    if (isWayland()) {
        auto started = WaylandDesktop::start({.compositor = managerName(), .hasXwayland = true});
        ASSERT_TRUE(started) << qPrintable(started.error());
        s_wayland = std::move(*started);
    } else {
        auto started = VirtualDesktop::start({.without = s_without});
        ASSERT_TRUE(started) << qPrintable(started.error());
        s_desktop = std::move(*started);
    }
    s_corvane = std::make_unique<CorvaneProcess>(session(), QStringLiteral(CORVANE_PROGRAM));
}

PrivateSession &LiveTests::session()
{
    if (s_wayland)
        return *s_wayland;
    return *s_desktop;
}

Keys &LiveTests::keys()
{
    if (s_wayland)
        return s_wayland->keys();
    return s_desktop->keys();
}

void LiveTests::startProgram()
{
    if (!corvane().isRunning()) {
        ASSERT_TRUE(corvane().start()) << qPrintable(session().logs());
    }
}

void LiveTests::ensureManager(const QString &name)
{
    if (manager() && manager()->isRunning() && manager()->name() == name)
        return;
    manager().reset();
    auto process = WindowManagerProcess::start(desktop(), name);
    ASSERT_TRUE(process) << qPrintable(process.error());
    manager() = std::move(*process);
}

std::unique_ptr<WindowClient> LiveTests::startClient()
{
    if (s_wayland)
        return std::make_unique<WaylandClient>(*s_wayland);
    return std::make_unique<TestClient>(*s_desktop);
}

quint32 LiveTests::showFocused(const WindowRequest &request)
{
    const quint32 window = client().show(request);
    EXPECT_NE(window, 0U);
    EXPECT_TRUE(focus(window));
    return window;
}

bool LiveTests::focus(quint32 window)
{
    if (hand().activeWindow() != window)
        hand().activate(window);
    return waitUntil([&] { return hand().activeWindow() == window; });
}

testing::AssertionResult LiveTests::rests(
    quint32 window, const Rect &expected, Milliseconds deadline)
{
    const bool does = waitUntil(
        [&] { return hand().frame(window) == expected && frame(window) == expected; }, deadline);
    if (does)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << testing::PrintToString(frame(window)) << ", not " << testing::PrintToString(expected);
}

testing::AssertionResult LiveTests::lands(quint32 window, Placement placement, const Rect &area)
{
    press(placement);
    return rests(window, frameOf(placement, area)) << " (" << rawValue(placement).data() << ')';
}

void LiveTests::press(Placement placement)
{
    const qsizetype seen = corvane().log().size();
    keys().press(strokeOf(placement));
    EXPECT_TRUE(waitUntil([&] { return corvane().log().size() > seen; })) << "it was not heard";
}

} // namespace corvane::desktop

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    corvane::desktop::LiveTests::endDesk();
    return status;
}
