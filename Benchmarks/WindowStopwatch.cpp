#include "WindowStopwatch.h"

#include "Pager.h"
#include "WakeUps.h"

namespace corvane::bench {

using namespace desktop;

namespace {

constexpr Milliseconds quiet{100};

} // namespace

WindowStopwatch::WindowStopwatch(VirtualDesktop &desktop, pid_t pid, std::function<void()> open)
    : m_desktop(desktop)
    , m_probe(desktop.connection())
    , m_keyboard(desktop.connection())
    , m_pid(pid)
    , m_open(std::move(open))
{
}

bool WindowStopwatch::open()
{
    m_open();
    return isOpen();
}

bool WindowStopwatch::isOpen()
{
    m_window = m_probe.waitForWindow(
        [this](xcb_window_t each) { return m_probe.hasProcess(each, m_pid); });
    return m_window && waitUntil([this] { return m_probe.activeWindow() == m_window; });
}

bool WindowStopwatch::close()
{
    Pager(m_desktop.connection()).close(m_window);
    return waitUntil([this] { return !m_probe.clients().contains(m_window); });
}

Picture WindowStopwatch::look()
{
    rest();
    return settledPicture(
        m_desktop.connection(), m_probe.clientGeometry(m_window).value_or(Rect()));
}

std::optional<double> WindowStopwatch::timeToOpen(const Picture &picture)
{
    const auto duration = time(m_open, picture);
    return isOpen() ? duration : std::nullopt;
}

std::optional<double> WindowStopwatch::time(
    const std::function<void()> &request, const Picture &picture)
{
    rest();
    return timeUntilShown(m_desktop.connection(), picture, request);
}

std::optional<double> WindowStopwatch::time(Key key, const Picture &picture)
{
    const auto duration = time([&] { m_keyboard.key(key, true); }, picture);
    m_keyboard.key(key, false);
    return duration;
}

std::optional<double> WindowStopwatch::time(
    const KeyStroke &stroke, const std::function<bool()> &condition)
{
    m_keyboard.holdModifiers(stroke);
    rest();
    const auto duration =
        timeUntil([&] { m_keyboard.key(stroke.key, true); }, condition, [] { return true; });
    m_keyboard.key(stroke.key, false);
    m_keyboard.releaseModifiers(stroke);
    return duration;
}

void WindowStopwatch::rest()
{
    waitForRest(m_pid, quiet);
}

} // namespace corvane::bench
