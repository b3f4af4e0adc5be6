#pragma once

#include "Clock.h"

namespace corvane {

/// The clock of any system. Where the computer sleeps, it comes late to a date.
class SystemClock : public Clock
{
public:
    Duration now() override;
    QDateTime date() override;
    void sleep(Duration duration) override;
    void after(Duration duration, QObject *context, std::function<void()> action) override;
    void at(const QDateTime &date, QObject *context, std::function<void()> action) override;
};

} // namespace corvane
