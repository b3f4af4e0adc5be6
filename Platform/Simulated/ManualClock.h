#pragma once

#include "Clock.h"

#include <QtCore/QPointer>

#include <map>

namespace corvane {

/// A clock that moves only when it is told to. It starts at zero, on the same date every time.
class ManualClock final : public Clock
{
public:
    Duration now() override;
    QDateTime date() override;
    /// Moves on without running any action, as nothing else runs while a real thread sleeps. What
    /// falls due meanwhile runs at the next `advance`.
    void sleep(Duration duration) override;
    void after(Duration duration, QObject *context, std::function<void()> action) override;
    void at(const QDateTime &date, QObject *context, std::function<void()> action) override;

    /// Moves on and runs, in the order of their times, the actions that fall due on the way, those
    /// that they add included.
    void advance(Duration duration);

private:
    struct Entry {
        QPointer<QObject> context;
        std::function<void()> action;
    };

    Duration m_now{0};
    std::multimap<Duration, Entry> m_entries; ///< equal times in the order of their adding
};

} // namespace corvane
