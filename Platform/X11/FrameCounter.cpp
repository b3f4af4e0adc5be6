#include "FrameCounter.h"

#include "Properties.h"

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
    m_alarm = xcb_generate_id(m_connection.xcb());
    // At every change.
    constexpr quint32 mask = XCB_SYNC_CA_COUNTER | XCB_SYNC_CA_VALUE_TYPE | XCB_SYNC_CA_VALUE
        | XCB_SYNC_CA_TEST_TYPE | XCB_SYNC_CA_DELTA | XCB_SYNC_CA_EVENTS;
    const xcb_sync_create_alarm_value_list_t values{
        .counter = counters.last(),
        .valueType = XCB_SYNC_VALUETYPE_RELATIVE,
        .value = {0, 1},
        .testType = XCB_SYNC_TESTTYPE_POSITIVE_COMPARISON,
        .delta = {0, 1},
        .events = 1,
    };
    xcb_sync_create_alarm_aux(m_connection.xcb(), m_alarm, mask, &values);
    xcb_flush(m_connection.xcb());
}

void FrameCounter::stop()
{
    if (m_alarm != XCB_NONE)
        xcb_sync_destroy_alarm(m_connection.xcb(), m_alarm);
    m_alarm = XCB_NONE;
}

void FrameCounter::handle(const xcb_generic_event_t &event)
{
    if (m_alarm == XCB_NONE || (event.response_type & 0x7f) != m_alarmNotice)
        return;
    const auto &notice = reinterpret_cast<const xcb_sync_alarm_notify_event_t &>(event);
    const bool isDrawing = m_isExtended && notice.counter_value.lo % 2 == 1;
    if (notice.alarm == m_alarm && notice.state == XCB_SYNC_ALARMSTATE_ACTIVE && !isDrawing)
        ++m_count;
}

} // namespace corvane::x11
