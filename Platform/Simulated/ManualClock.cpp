#include "ManualClock.h"

#include <QtCore/QTimeZone>

#include <algorithm>

namespace corvane {

Clock::Duration ManualClock::now()
{
    return m_now;
}

QDateTime ManualClock::date()
{
    return QDateTime({2024, 1, 15}, {9, 0}, QTimeZone::utc()).addMSecs(m_now.count());
}

void ManualClock::sleep(Duration duration)
{
    m_now += duration;
}

void ManualClock::after(Duration duration, QObject *context, std::function<void()> action)
{
    Q_ASSERT(context);
    m_entries.emplace(m_now + duration, Entry{context, std::move(action)});
}

void ManualClock::at(const QDateTime &date, QObject *context, std::function<void()> action)
{
    after(Duration(this->date().msecsTo(date)), context, std::move(action));
}

void ManualClock::advance(Duration duration)
{
    const Duration end = m_now + duration;
    while (!m_entries.empty() && m_entries.begin()->first <= end) {
        const auto entry = m_entries.extract(m_entries.begin());
        m_now = std::max(m_now, entry.key());
        if (entry.mapped().context)
            entry.mapped().action();
    }
    m_now = std::max(m_now, end);
}

} // namespace corvane
