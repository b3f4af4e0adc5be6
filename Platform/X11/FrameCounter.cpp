#include "FrameCounter.h"

#include "Properties.h"

#include <utility>

namespace corvane::x11 {

FrameCounter::FrameCounter(Connection &connection) : m_connection(connection)
{
    m_connection.addSink(this);
    const auto *sync = m_connection.extension(xcb_sync_id);
    if (!sync)
        return;
    m_alarmNotice = static_cast<quint8>(sync->first_event + XCB_SYNC_ALARM_NOTIFY);
    m_connection.discard(
        xcb_sync_initialize(m_connection.xcb(), XCB_SYNC_MAJOR_VERSION, XCB_SYNC_MINOR_VERSION)
            .sequence);
}

FrameCounter::~FrameCounter()
{
    stop();
    m_connection.removeSink(this);
}

void FrameCounter::start(xcb_window_t window)
{
    stop();
    m_count = 0;
    const auto counters = readList(m_connection, window, Atom::netWmSyncRequestCounter);
    if (counters.isEmpty() || m_alarmNotice == 0)
        return;
    m_isExtended = counters.size() > 1;
    followCounter(counters.last());
    if (readList(m_connection, window, Atom::wmProtocols)
            .contains(m_connection.atom(Atom::netWmPing)))
        ping(window);
}

void FrameCounter::followCounter(xcb_sync_counter_t counter)
{
    m_alarm = xcb_generate_id(m_connection.xcb());
    // At every change.
    constexpr quint32 mask = XCB_SYNC_CA_COUNTER | XCB_SYNC_CA_VALUE_TYPE | XCB_SYNC_CA_VALUE
        | XCB_SYNC_CA_TEST_TYPE | XCB_SYNC_CA_DELTA | XCB_SYNC_CA_EVENTS;
    const xcb_sync_create_alarm_value_list_t values{
        .counter = counter,
        .valueType = XCB_SYNC_VALUETYPE_RELATIVE,
        .value = {0, 1},
        .testType = XCB_SYNC_TESTTYPE_POSITIVE_COMPARISON,
        .delta = {0, 1},
        .events = 1,
    };
    xcb_sync_create_alarm_aux(m_connection.xcb(), m_alarm, mask, &values);
    xcb_flush(m_connection.xcb());
}

/// The answer goes to the root window, where every window manager ignores a time that is not its own.
void FrameCounter::ping(xcb_window_t window)
{
    m_connection.hearClients(true);
    m_isAwaited = true;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_connection.atom(Atom::wmProtocols);
    message.data.data32[0] = m_connection.atom(Atom::netWmPing);
    message.data.data32[1] = ++m_pings;
    message.data.data32[2] = window;
    xcb_send_event(m_connection.xcb(), 0, window, XCB_EVENT_MASK_NO_EVENT,
        reinterpret_cast<const char *>(&message));
    xcb_flush(m_connection.xcb());
}

void FrameCounter::stop()
{
    if (std::exchange(m_isAwaited, false))
        m_connection.hearClients(false);
    if (m_alarm != XCB_NONE)
        xcb_sync_destroy_alarm(m_connection.xcb(), m_alarm);
    m_alarm = XCB_NONE;
}

void FrameCounter::handle(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7f;
    if (m_isAwaited && type == XCB_CLIENT_MESSAGE) {
        const auto &message = reinterpret_cast<const xcb_client_message_event_t &>(event);
        if (message.data.data32[0] == m_connection.atom(Atom::netWmPing)
            && message.data.data32[1] == m_pings) {
            m_isAwaited = false;
            m_connection.hearClients(false);
        }
    }
    if (m_isAwaited || m_alarm == XCB_NONE || type != m_alarmNotice)
        return;
    const auto &notice = reinterpret_cast<const xcb_sync_alarm_notify_event_t &>(event);
    const bool isDrawing = m_isExtended && notice.counter_value.lo % 2 == 1;
    if (notice.alarm == m_alarm && notice.state == XCB_SYNC_ALARMSTATE_ACTIVE && !isDrawing)
        ++m_count;
}

} // namespace corvane::x11
