#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>

namespace corvane::freedesktop {

/// As long as a bus itself waits for a service that it starts, in milliseconds.
inline constexpr int startPatience = 120'000;

/// Calls a method and returns at once. The answer, perhaps an error, arrives later unless `context`
/// is gone by then. False where there is no bus: then none comes.
bool callLater(const QDBusConnection &bus, const QDBusMessage &call, int timeout, QObject *context,
    std::function<void(const QDBusMessage &answer)> onAnswer);

/// Whether what was asked for may still be done, slowly: who asks elsewhere, too, gets it twice.
[[nodiscard]] bool mayStillCome(const QDBusMessage &answer);

} // namespace corvane::freedesktop
