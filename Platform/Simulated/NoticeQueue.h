#pragma once

#include "Clock.h"

#include <QtCore/QObject>

#include <deque>
#include <functional>

namespace corvane {

/// Signals of the desktop that wait until no call to it is under way; they are told in their order.
class NoticeQueue final : public QObject
{
public:
    explicit NoticeQueue(Clock &clock);

    void post(std::function<void()> notice);
    /// Tells everything that waits, and what is posted meanwhile.
    void deliver();
    /// Forgets what was not told yet.
    void clear();

private:
    Clock &m_clock;
    std::deque<std::function<void()>> m_notices;
};

} // namespace corvane
