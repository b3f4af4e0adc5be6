#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace corvane::freedesktop {

/// How long a call may take that starts a service, in milliseconds: as long as the bus itself
/// waits.
inline constexpr int startPatience = 120'000;

/// Calls a method and returns at once. The answer, perhaps an error, arrives later unless `context`
/// is gone by then. False where there is no bus: then none comes.
bool callLater(const QDBusConnection &bus, const QDBusMessage &call, int timeout, QObject *context,
    std::function<void(const QDBusMessage &answer)> onAnswer);

/// The process that has this name on the session bus; 0 where none has. Waits a second at most.
[[nodiscard]] pid_t processOf(const QString &name);

/// Whether the service may still do, slowly, what it was asked for. Whoever asks another one then
/// may get it twice.
[[nodiscard]] bool mayStillCome(const QDBusMessage &answer);

} // namespace corvane::freedesktop
