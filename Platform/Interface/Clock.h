#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QObject>

#include <chrono>
#include <functional>

namespace corvane {

/// The only source of time above the platform floor.
class Clock
{
public:
    using Duration = std::chrono::milliseconds;

    virtual ~Clock() = default;

    /// Time since an arbitrary start; never goes back.
    [[nodiscard]] virtual Duration now() = 0;
    [[nodiscard]] virtual QDateTime date() = 0;
    /// Blocks the calling thread.
    virtual void sleep(Duration duration) = 0;
    /// Runs `action` on the main thread once `duration` has passed, unless `context` is gone by then.
    virtual void after(Duration duration, QObject *context, std::function<void()> action) = 0;
    /// The same once the date has come, by the clock that people set, and also where the computer slept
    /// meanwhile.
    virtual void at(const QDateTime &date, QObject *context, std::function<void()> action) = 0;
};

} // namespace corvane
