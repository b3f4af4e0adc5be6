#pragma once

#include "Connection.h"

#include <xcb/sync.h>

namespace corvane::x11 {

/// Counts how often a client has drawn itself, if it tells (_NET_WM_SYNC_REQUEST_COUNTER).
class FrameCounter final : private EventSink
{
public:
    explicit FrameCounter(Connection &connection);
    ~FrameCounter();
    Q_DISABLE_COPY_MOVE(FrameCounter)

    /// Counts this window's frames from now on, from zero.
    void start(xcb_window_t window);
    void stop();
    /// Whether the client tells.
    [[nodiscard]] bool isCounting() const { return m_alarm != XCB_NONE; }
    [[nodiscard]] int count() const { return m_count; }

private:
    void handle(const xcb_generic_event_t &event) override;

    Connection &m_connection;
    quint8 m_alarmNotice = 0; ///< the event's number; 0 where the server has no counters
    xcb_sync_alarm_t m_alarm = XCB_NONE;
    bool m_isExtended = false; ///< odd while the client draws
    int m_count = 0;
};

} // namespace corvane::x11
