#include "LiveDesk.h"

#include <QtCore/QFileInfo>

#include <algorithm>
#include <ostream>

namespace corvane {

void PrintTo(const Rect &rect, std::ostream *stream)
{
    *stream << rect.x << ',' << rect.y << ' ' << rect.width << 'x' << rect.height;
}

void PrintTo(const Point &point, std::ostream *stream)
{
    *stream << point.x << ',' << point.y;
}

void PrintTo(const Size &size, std::ostream *stream)
{
    *stream << size.width << 'x' << size.height;
}

} // namespace corvane

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

struct Shared {
    std::unique_ptr<LiveDesk> desk;
    QString error;
};

Shared &sharedDesk()
{
    static Shared shared;
    return shared;
}

} // namespace

QString programUnderTest()
{
    return qEnvironmentVariable("CORVANE_PROGRAM", QString::fromUtf8(CORVANE_PROGRAM));
}

LiveDesk *LiveDesk::shared()
{
    Shared &shared = sharedDesk();
    if (!shared.desk && shared.error.isEmpty()) {
        auto desk = std::make_unique<LiveDesk>();
        shared.error = desk->start();
        if (shared.error.isEmpty())
            shared.desk = std::move(desk);
    }
    return shared.desk.get();
}

QString LiveDesk::error()
{
    return sharedDesk().error;
}

QString LiveDesk::managerName()
{
    return qEnvironmentVariable("CORVANE_TEST_WM", u"openbox"_s);
}

void LiveDesk::end()
{
    if (LiveDesk *desk = sharedDesk().desk.get()) {
        desk->corvane.reset();
        desk->manager.reset();
        sharedDesk().desk.reset();
    }
}

QString LiveDesk::start()
{
    auto started = VirtualDesktop::start({});
    if (!started)
        return started.error();
    desktop = std::move(*started);
    auto process = WindowManagerProcess::start(*desktop, managerName());
    if (!process)
        return process.error();
    manager = std::move(*process);
    corvane = std::make_unique<CorvaneProcess>(*desktop, programUnderTest());
    return corvane->start() ? QString() : u"the program did not start:\n%1"_s.arg(desktop->logs());
}

void LiveTests::SetUp()
{
    m_desk = LiveDesk::shared();
    ASSERT_TRUE(m_desk) << qPrintable(LiveDesk::error());
    if (desktop().displays().displays() != QList{standardDisplay}) {
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
    m_client.reset();
    if (!m_desk)
        return;
    EXPECT_TRUE(corvane().isRunning()) << "the program ended";
    if (HasFailure())
        std::fprintf(stderr, "%s\n", qPrintable(desktop().logs(3000)));
}

xcb_window_t LiveTests::showFocused(const WindowRequest &request)
{
    const xcb_window_t window = client().show(request);
    EXPECT_NE(window, xcb_window_t(XCB_WINDOW_NONE));
    EXPECT_TRUE(focus(window));
    return window;
}

xcb_window_t LiveTests::showFocusedOn(const Rect &display)
{
    const Rect place{display.x + 200, display.y + 200, 500, 400};
    const xcb_window_t window = showFocused({.geometry = place});
    pager().moveResize(window, place);
    EXPECT_TRUE(waitUntil([&] {
        const Rect now = frame(window);
        return now.midX() > display.x && now.midX() < display.maxX() && now.midY() > display.y
            && now.midY() < display.maxY();
    }));
    EXPECT_TRUE(focus(window));
    return window;
}

bool LiveTests::focus(xcb_window_t window)
{
    if (probe().activeWindow() != window)
        pager().activate(window);
    return waitUntil([&] { return probe().activeWindow() == window; }, Milliseconds{3000});
}

Rect LiveTests::reached(xcb_window_t window, const Rect &expected)
{
    static_cast<void>(probe().waitForFrame(window, expected, Milliseconds{3000}));
    return frame(window);
}

Rect LiveTests::frame(xcb_window_t window)
{
    return probe().settledFrame(window).value_or(Rect());
}

void LiveTests::ensureManager()
{
    if (m_desk->manager->isRunning())
        return;
    auto process = WindowManagerProcess::start(desktop(), LiveDesk::managerName());
    ASSERT_TRUE(process) << qPrintable(process.error());
    m_desk->manager = std::move(*process);
}

bool LiveTests::isManager(std::initializer_list<const char *> names)
{
    return std::ranges::any_of(
        names, [](const char *name) { return LiveDesk::managerName() == QLatin1StringView(name); });
}

testing::AssertionResult moved(const CorvaneProcess::Answer &answer)
{
    if (answer.exitStatus == 0 && answer.name() == u"moved")
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << "status " << answer.exitStatus.value_or(-1) << ": " << answer.output.constData();
}

testing::AssertionResult refused(const CorvaneProcess::Answer &answer, const QString &reason)
{
    if (answer.exitStatus == 1 && answer.name() != u"moved" && answer.reason().contains(reason))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
        << "status " << answer.exitStatus.value_or(-1) << ": " << answer.output.constData();
}

} // namespace corvane::desktop
