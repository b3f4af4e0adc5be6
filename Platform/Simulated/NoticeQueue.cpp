#include "NoticeQueue.h"

#include <utility>

namespace corvane {

NoticeQueue::NoticeQueue(Clock &clock) : m_clock(clock) { }

void NoticeQueue::post(std::function<void()> notice)
{
    m_notices.push_back(std::move(notice));
    if (m_notices.size() > 1)
        return;
    // By the clock, so that a test which advances it meets the notice at its time; by the event
    // loop, so that it also comes while a manual clock stands still.
    m_clock.after({}, this, [this] { deliver(); });
    QMetaObject::invokeMethod(
        this, [this] { deliver(); }, Qt::QueuedConnection);
}

void NoticeQueue::deliver()
{
    while (!m_notices.empty()) {
        const auto notice = std::exchange(m_notices.front(), {});
        m_notices.pop_front();
        notice();
    }
}

void NoticeQueue::clear()
{
    m_notices.clear();
}

} // namespace corvane
