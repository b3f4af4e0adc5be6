#pragma once

#include "Clock.h"

#include <QtCore/QObject>

#include <deque>
#include <functional>

namespace corvane {

/// Keeps what the desktop has to tell until no call to it is under way, in order.
class NoticeQueue final : public QObject
{
public:
    explicit NoticeQueue(Clock &clock);

    void post(std::function<void()> notice);
    /// Tells everything, what is posted meanwhile included.
    void deliver();
    /// Forgets what was not told yet.
    void clear();

private:
    Clock &m_clock;
    std::deque<std::function<void()>> m_notices;
};

} // namespace corvane
