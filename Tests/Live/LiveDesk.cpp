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

Rect frameOf(Placement placement, const Rect &area)
{
    return Geometry::frame(unitRect(placement).value_or(UnitRect{}), area, 0);
}

void LiveTests::endDesk()
{
    s_corvane.reset();
    s_manager.reset();
    s_desktop.reset();
}

void LiveTests::SetUp()
{
    if (!s_desktop) {
        auto started = VirtualDesktop::start({.without = s_without});
        ASSERT_TRUE(started) << qPrintable(started.error());
        s_desktop = std::move(*started);
        s_corvane = std::make_unique<CorvaneProcess>(desktop(), QStringLiteral(CORVANE_PROGRAM));
    } else if (desktop().displays().displays() != QList{standardDisplay}) {
        ASSERT_TRUE(desktop().displays().arrange({standardDisplay}));
    }
    ASSERT_NO_FATAL_FAILURE(ensureManager());
    if (!corvane().isRunning()) {
        ASSERT_TRUE(corvane().start()) << qPrintable(desktop().logs());
    }
    m_client = std::make_unique<TestClient>(desktop());
}

void LiveTests::TearDown()
{
    if (!m_client)
        return;
    m_client.reset();
    EXPECT_TRUE(corvane().isRunning()) << "the program ended";
    if (HasFailure())
        std::fprintf(stderr, "%s\n", qPrintable(desktop().logs(3000)));
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

xcb_window_t LiveTests::showFocused(const WindowRequest &request)
{
    const xcb_window_t window = client().show(request);
    EXPECT_NE(window, xcb_window_t(XCB_WINDOW_NONE));
    EXPECT_TRUE(focus(window));
    return window;
}

bool LiveTests::focus(xcb_window_t window)
{
    if (probe().activeWindow() != window)
        pager().activate(window);
    return waitUntil([&] { return probe().activeWindow() == window; });
}

Rect LiveTests::frame(xcb_window_t window)
{
    return probe().settledFrame(window).value_or(Rect());
}

testing::AssertionResult LiveTests::rests(
    xcb_window_t window, const Rect &expected, Milliseconds deadline)
{
    const bool does = waitUntil(
        [&] { return probe().visibleFrame(window) == expected && frame(window) == expected; },
        deadline);
    if (does)
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << testing::PrintToString(frame(window)) << ", not " << testing::PrintToString(expected);
}

testing::AssertionResult LiveTests::lands(
    xcb_window_t window, Placement placement, const Rect &area)
{
    press(placement);
    return rests(window, frameOf(placement, area)) << " (" << rawValue(placement).data() << ')';
}

void LiveTests::press(Placement placement)
{
    const qsizetype seen = corvane().log().size();
    keys().press(std::ranges::find(shortcuts, placement, &Shortcut::first)->second);
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
