#pragma once

#include "WaylandClientDesk.h"
#include "WaylandDesktop.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace corvane::bench {

/// Windows of this process on a Wayland desktop, without decorations. A thread of their own answers the
/// compositor at once, and looks at the clock when they have been told their sizes.
class WaylandCrowd
{
public:
    using Clock = std::chrono::steady_clock;

    explicit WaylandCrowd(desktop::WaylandDesktop &desktop);
    ~WaylandCrowd();
    Q_DISABLE_COPY_MOVE(WaylandCrowd)

    /// Opens a window there. False when it did not appear.
    [[nodiscard]] bool open(const QString &title, const Rect &frame);
    /// By the numbers of the desktop's hand, in the order in which they were opened.
    [[nodiscard]] const QList<quint32> &windows() const { return m_windows; }
    /// Whether each window stands in its frame, now or soon.
    [[nodiscard]] bool stand(const QList<Rect> &frames);

    /// From now on, waits for every window to be told the size of its frame.
    void expect(const QList<Rect> &frames);
    /// When the last of them was; nothing when that has not come by the deadline.
    [[nodiscard]] std::optional<Clock::time_point> arrival(Clock::time_point deadline);

private:
    void run();
    [[nodiscard]] bool haveArrived();

    desktop::Hand &m_hand;
    std::unique_ptr<desktop::WaylandClientDesk> m_client;
    QList<quint32> m_windows;
    QList<quint32> m_own; ///< the client's numbers
    std::mutex m_mutex; ///< of the client and what follows
    std::condition_variable m_haveArrived;
    QList<Size> m_expected; ///< empty when nothing is
    std::optional<Clock::time_point> m_arrival;
    bool m_isOver = false;
    std::thread m_thread;
};

} // namespace corvane::bench
