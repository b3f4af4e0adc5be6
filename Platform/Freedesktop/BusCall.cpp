#include "BusCall.h"

#include <QtDBus/QDBusError>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusReply>

namespace corvane::freedesktop {

bool callLater(const QDBusConnection &bus, const QDBusMessage &call, int timeout, QObject *context,
    std::function<void(const QDBusMessage &answer)> onAnswer)
{
    if (!bus.isConnected())
        return false;
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, timeout), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context,
        [watcher, onAnswer = std::move(onAnswer)] {
            watcher->deleteLater();
            onAnswer(watcher->reply());
        });
    return true;
}

pid_t processOf(const QString &name)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("GetConnectionUnixProcessID"));
    call << name;
    constexpr int timeout = 1'000;
    const QDBusReply<uint> answer = QDBusConnection::sessionBus().call(call, QDBus::Block, timeout);
    return answer.isValid() ? static_cast<pid_t>(answer.value()) : 0;
}

bool mayStillCome(const QDBusMessage &answer)
{
    using enum QDBusError::ErrorType;
    const auto type = QDBusError(answer).type();
    return type == NoReply || type == Timeout || type == TimedOut;
}

} // namespace corvane::freedesktop
