#include "WaylandCrowd.h"

#include <poll.h>
#include <unistd.h>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

WaylandCrowd::WaylandCrowd(WaylandDesktop &desktop) : m_hand(desktop.hand())
{
    qputenv("WAYLAND_DISPLAY", desktop.environment().value(u"WAYLAND_DISPLAY"_s).toLocal8Bit());
    m_client = std::make_unique<WaylandClientDesk>();
    m_thread = std::thread([this] { run(); });
}

WaylandCrowd::~WaylandCrowd()
{
    {
        const std::lock_guard lock(m_mutex);
        m_isOver = true;
    }
    m_thread.join();
}

bool WaylandCrowd::open(const QString &title, const Rect &frame)
{
    const QList<quint32> known = m_hand.windowsOf(::getpid());
    WindowRequest request{.geometry = frame, .decorated = false};
    request.title = title.toUtf8();
    {
        const std::lock_guard lock(m_mutex);
        m_own << m_client->show(request);
    }
    const quint32 window = m_hand.waitForWindow(::getpid(), known);
    m_windows << window;
    return window != 0;
}

bool WaylandCrowd::stand(const QList<Rect> &frames)
{
    return waitUntil([&] {
        const QList<SeenWindow> all = m_hand.windows();
        for (qsizetype i = 0; i < frames.size(); ++i) {
            const auto seen = std::ranges::find(all, m_windows[i], &SeenWindow::number);
            if (seen == all.end() || seen->frame != frames[i])
                return false;
        }
        return true;
    });
}

void WaylandCrowd::expect(const QList<Rect> &frames)
{
    const std::lock_guard lock(m_mutex);
    m_arrival.reset();
    m_expected.clear();
    for (const Rect &frame : frames)
        m_expected << frame.size();
}

std::optional<WaylandCrowd::Clock::time_point> WaylandCrowd::arrival(Clock::time_point deadline)
{
    std::unique_lock lock(m_mutex);
    m_haveArrived.wait_until(lock, deadline, [this] { return m_arrival.has_value(); });
    m_expected.clear();
    return m_arrival;
}

void WaylandCrowd::run()
{
    pollfd readable{m_client->file(), POLLIN, 0};
    for (;;) {
        // Who opens a window takes what arrives meanwhile, so that this would not hear of it.
        constexpr int lookAgain = 10;
        ::poll(&readable, 1, lookAgain);
        const std::lock_guard lock(m_mutex);
        if (m_isOver)
            return;
        m_client->work(Clock::now());
        if (!m_expected.isEmpty() && !m_arrival && haveArrived()) {
            m_arrival = Clock::now();
            m_haveArrived.notify_all();
        }
    }
}

bool WaylandCrowd::haveArrived()
{
    for (qsizetype i = 0; i < m_expected.size(); ++i) {
        if (m_client->size(m_own[i]) != m_expected[i])
            return false;
    }
    return true;
}

} // namespace corvane::bench
