#include "WallClock.h"

#include <QtCore/QSocketNotifier>

#include <sys/timerfd.h>
#include <unistd.h>

namespace corvane::freedesktop {

void WallClock::at(const QDateTime &date, QObject *context, std::function<void()> action)
{
    const int timer = ::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK);
    if (timer < 0)
        return SystemClock::at(date, context, std::move(action));
    // A time of zero would switch the timer off; any other that is over comes at once.
    itimerspec time{};
    time.it_value.tv_sec = qMax(date.toSecsSinceEpoch(), qint64(1));
    ::timerfd_settime(timer, TFD_TIMER_ABSTIME, &time, nullptr);
    auto *const notifier = new QSocketNotifier(timer, QSocketNotifier::Read, context);
    QObject::connect(notifier, &QObject::destroyed, [timer] { ::close(timer); });
    QObject::connect(
        notifier, &QSocketNotifier::activated, context, [notifier, action = std::move(action)] {
            notifier->setEnabled(false);
            notifier->deleteLater();
            action();
        });
}

} // namespace corvane::freedesktop
