#include "LayoutStopwatch.h"

#include "Arrival.h"
#include "Pager.h"

#include <thread>

namespace corvane::bench {

using namespace desktop;
using namespace std::chrono_literals;

namespace {

constexpr auto patienceForALayout = 10s;
/// For whatever a program and the window manager still do afterwards.
constexpr auto breath = 60ms;

} // namespace

LayoutStopwatch::LayoutStopwatch(VirtualDesktop &desktop, const QList<xcb_window_t> &windows)
    : m_windows(windows)
    , m_connection(desktop.displayName())
    , m_keyboard(m_connection)
    , m_probe(m_connection)
    , m_activeWindow(m_connection.atom("_NET_ACTIVE_WINDOW"))
{
    const quint32 followProperties = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(
        m_connection.raw(), m_connection.root(), XCB_CW_EVENT_MASK, &followProperties);
}

std::optional<double> LayoutStopwatch::time(const KeyStroke &stroke, const QList<Rect> &clients)
{
    if (!prepare())
        return std::nullopt;
    m_keyboard.holdModifiers(stroke);
    while (wasNoticed()) { }
    const auto start = Clock::now();
    m_keyboard.key(stroke.key, true);
    // At once, since a script takes longer than a key needs to repeat.
    m_keyboard.key(stroke.key, false);
    const auto end = arrival(
        m_connection, start + patienceForALayout, [this] { return wasNoticed(); },
        [this] { return m_probe.activeWindow() == m_windows.last(); });
    m_keyboard.releaseModifiers(stroke);
    const bool stood = stand(clients);
    std::this_thread::sleep_for(breath);
    if (!end || !stood)
        return std::nullopt;
    return std::chrono::duration<double, std::milli>(*end - start).count();
}

bool LayoutStopwatch::prepare()
{
    Pager(m_connection).activate(m_windows.first());
    const bool isActive = waitUntil([this] { return m_probe.activeWindow() == m_windows.first(); });
    std::this_thread::sleep_for(breath);
    return isActive;
}

bool LayoutStopwatch::stand(const QList<Rect> &clients)
{
    for (qsizetype i = 0; i < m_windows.size(); ++i) {
        if (m_probe.clientGeometry(m_windows[i]) != clients[i])
            return false;
    }
    return true;
}

bool LayoutStopwatch::wasNoticed()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.raw())}) {
        if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY
            && reinterpret_cast<const xcb_property_notify_event_t *>(event.get())->atom
                == m_activeWindow)
            return true;
    }
    return false;
}

} // namespace corvane::bench
