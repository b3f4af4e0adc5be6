#pragma once

#include "Clock.h"

namespace corvane {

class SystemClock final : public Clock
{
public:
    Duration now() override;
    QDateTime date() override;
    void sleep(Duration duration) override;
    void after(Duration duration, QObject *context, std::function<void()> action) override;
};

} // namespace corvane
