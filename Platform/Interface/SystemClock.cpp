#include "SystemClock.h"

#include <QtCore/QTimer>

#include <thread>

namespace corvane {

Clock::Duration SystemClock::now()
{
    return std::chrono::duration_cast<Duration>(
        std::chrono::steady_clock::now().time_since_epoch());
}

QDateTime SystemClock::date()
{
    return QDateTime::currentDateTime();
}

void SystemClock::sleep(Duration duration)
{
    std::this_thread::sleep_for(duration);
}

void SystemClock::after(Duration duration, QObject *context, std::function<void()> action)
{
    QTimer::singleShot(duration, context, std::move(action));
}

void SystemClock::at(const QDateTime &date, QObject *context, std::function<void()> action)
{
    after(Duration(qMax(this->date().msecsTo(date), qint64(0))), context, std::move(action));
}

} // namespace corvane
