#pragma once

#include "SystemClock.h"

namespace corvane::freedesktop {

/// Keeps to its dates through the computer's sleep and when the clock is set (timerfd, Linux 3.0).
class WallClock final : public SystemClock
{
public:
    void at(const QDateTime &date, QObject *context, std::function<void()> action) override;
};

} // namespace corvane::freedesktop
