#include "KeyStopwatch.h"

#include "Arrival.h"

#include <thread>

namespace corvane::bench {

using namespace desktop;
using namespace std::chrono_literals;

namespace {

constexpr auto patienceForAMove = 1s;
/// For whatever a program still does after its move.
constexpr auto breath = 6ms;

} // namespace

KeyStopwatch::KeyStopwatch(VirtualDesktop &desktop, xcb_window_t window)
    : m_window(window)
    , m_connection(desktop.displayName())
    , m_keyboard(m_connection)
    , m_probe(m_connection)
{
    const quint32 followStructure = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.raw(), m_window, XCB_CW_EVENT_MASK, &followStructure);
}

std::optional<double> KeyStopwatch::time(const KeyStroke &stroke, const Rect &client)
{
    m_keyboard.holdModifiers(stroke);
    while (wasNoticed()) { }
    const auto start = Clock::now();
    m_keyboard.key(stroke.key, true);
    const auto end = arrival(
        m_connection, start + patienceForAMove, [this] { return wasNoticed(); },
        [&] { return m_probe.clientGeometry(m_window) == client; });
    m_keyboard.key(stroke.key, false);
    m_keyboard.releaseModifiers(stroke);
    std::this_thread::sleep_for(breath);
    if (!end)
        return std::nullopt;
    return std::chrono::duration<double, std::milli>(*end - start).count();
}

bool KeyStopwatch::wasNoticed()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.raw())}) {
        if ((event->response_type & 0x7f) == XCB_CONFIGURE_NOTIFY)
            return true;
    }
    return false;
}

} // namespace corvane::bench
