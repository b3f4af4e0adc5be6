#include "Spawn.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <glib.h>

#include <csignal>
#include <ctime>
#include <memory>
#include <unistd.h>
#include <vector>

namespace corvane::freedesktop {

namespace {

struct FreeStrings {
    void operator()(char **strings) const { g_strfreev(strings); }
};

using Strings = std::unique_ptr<char *, FreeStrings>;

Strings environment()
{
    char **variables = g_get_environ();
    const auto changes = variablesToRestore();
    for (const auto &[name, value] : changes.asKeyValueRange())
        variables = value ? g_environ_setenv(variables, name.constData(), value->constData(), true)
                          : g_environ_unsetenv(variables, name.constData());
    return Strings(
        g_environ_setenv(variables, "DESKTOP_STARTUP_ID", quietStartupId().constData(), true));
}

/// Between fork and exec: system calls only.
void leaveUs(void *)
{
    setsid();
    for (int number = 1; number < NSIG; ++number)
        signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

} // namespace

QMap<QByteArray, std::optional<QByteArray>> variablesToRestore()
{
    QMap<QByteArray, std::optional<QByteArray>> changes;
    for (const char *ours : {"DESKTOP_AUTOSTART_ID", "DESKTOP_STARTUP_ID",
             "GIO_LAUNCHED_DESKTOP_FILE", "GIO_LAUNCHED_DESKTOP_FILE_PID", "XDG_ACTIVATION_TOKEN"})
        changes[ours] = std::nullopt;
    for (char **variable = environ; *variable; ++variable) {
        if (const QByteArray each(*variable); each.startsWith("QT_"))
            changes[each.left(each.indexOf('='))] = std::nullopt;
    }
    QFile start(QStringLiteral("/proc/self/environ"));
    if (!start.open(QIODevice::ReadOnly))
        return changes;
    for (const QByteArray &each : start.readAll().split('\0')) {
        if (each.startsWith("QT_"))
            changes[each.left(each.indexOf('='))] = each.mid(each.indexOf('=') + 1);
    }
    return changes;
}

QString spawn(const QByteArrayList &command, const QByteArray &workingFolder)
{
    std::vector<char *> arguments;
    for (const QByteArray &argument : command)
        arguments.push_back(const_cast<char *>(argument.constData()));
    arguments.push_back(nullptr);
    // GLib forks twice unless asked not to: the program is not our child, and leaves no zombie.
    constexpr auto flags =
        GSpawnFlags(G_SPAWN_SEARCH_PATH | G_SPAWN_STDOUT_TO_DEV_NULL | G_SPAWN_STDERR_TO_DEV_NULL);
    const QByteArray folder =
        workingFolder.isEmpty() ? QFile::encodeName(QDir::homePath()) : workingFolder;
    GError *error = nullptr;
    if (g_spawn_async(folder.constData(), arguments.data(), environment().get(), flags, &leaveUs,
            nullptr, nullptr, &error))
        return {};
    const QString reason = QString::fromUtf8(error->message);
    g_error_free(error);
    return reason;
}

QByteArray quietStartupId()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    // The X server's clock: milliseconds since the machine started, in 32 bits. What lies less than
    // half of their range back is older, and 0 would mean that no time is known.
    constexpr qint64 longAgo = 1 << 30;
    const qint64 elapsed = time.tv_sec * 1000LL + time.tv_nsec / 1'000'000;
    const auto then = elapsed > longAgo ? quint32(elapsed - longAgo) : 1u;
    return "corvane-" + QByteArray::number(getpid()) + '-' + QByteArray::number(elapsed) + "_TIME"
        + QByteArray::number(then);
}

} // namespace corvane::freedesktop
