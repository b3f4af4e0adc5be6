#pragma once

#include "Connection.h"

#include <xcb/sync.h>

namespace corvane::x11 {

/// Counts how often a client has drawn itself, if it tells (_NET_WM_SYNC_REQUEST_COUNTER), since it has
/// heard of all that had happened to its window. A client that is pinged (_NET_WM_PING) answers when it
/// has come so far; a busy one may draw what is long past until then.
class FrameCounter final : private EventSink
{
public:
    explicit FrameCounter(Connection &connection);
    ~FrameCounter();
    Q_DISABLE_COPY_MOVE(FrameCounter)

    /// Counts this window's frames anew, of what is on the way to the client by now.
    void start(xcb_window_t window);
    void stop();
    /// Whether the client tells.
    [[nodiscard]] bool isCounting() const { return m_alarm != XCB_NONE; }
    [[nodiscard]] int count() const { return m_count; }

private:
    void handle(const xcb_generic_event_t &event) override;
    void followCounter(xcb_sync_counter_t counter);
    void ping(xcb_window_t window);

    Connection &m_connection;
    quint8 m_alarmNotice = 0; ///< the event's number; 0 where the server has no counters
    xcb_sync_alarm_t m_alarm = XCB_NONE;
    bool m_isExtended = false; ///< odd while the client draws
    quint32 m_pings = 0; ///< the number of the last one, which stands for its time
    bool m_isAwaited = false; ///< that one's answer
    int m_count = 0;
};

} // namespace corvane::x11
