#include "UpdateBenchmark.h"

#include "GrabProbe.h"
#include "ReleaseSite.h"
#include "Resident.h"
#include "Samples.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusReply>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr KeyStroke hotKey{KeyStroke::control | KeyStroke::alt | KeyStroke::super, Key::left};
constexpr Milliseconds updatePatience{60000};
constexpr int warmUpChecks = 50;

double elapsed(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

struct QuietCheck {
    double milliseconds = 0;
    double megabytes = 0; ///< at most
};

/// The helper by itself, as the program starts it.
std::optional<QuietCheck> checkQuietly(
    const ReleaseSite &site, const QProcessEnvironment &environment)
{
    QByteArray program = QFile::encodeName(site.updater()), option = "--check";
    char *arguments[]{program.data(), option.data(), nullptr};
    QByteArrayList texts;
    for (const QString &each : environment.toStringList())
        texts << each.toLocal8Bit();
    std::vector<char *> variables;
    for (QByteArray &each : texts)
        variables.push_back(each.data());
    variables.push_back(nullptr);
    int input[2];
    if (::pipe2(input, O_CLOEXEC) != 0)
        return std::nullopt;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    QElapsedTimer timer;
    timer.start();
    pid_t pid = 0;
    const int failure =
        ::posix_spawn(&pid, program.constData(), &actions, nullptr, arguments, variables.data());
    posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    rusage usage{};
    if (failure == 0)
        ::wait4(pid, &status, 0, &usage);
    const double time = elapsed(timer);
    ::close(input[0]);
    ::close(input[1]);
    if (status != 0)
        return std::nullopt;
    return QuietCheck{time, double(usage.ru_maxrss) / 1024};
}

/// From the end of the download to a version that has been tried, in milliseconds.
std::optional<double> timeUnpacking(const ReleaseSite &site, const PrivateSession &session)
{
    const auto helper =
        session.launch(site.updater(), {u"--check"_s, u"--asked"_s}, ChildProcess::Channel::pipes);
    QElapsedTimer timer;
    while (const auto line = helper->readLine(updatePatience)) {
        const QString kind = QJsonDocument::fromJson(*line).object()[u"kind"].toString();
        if (kind == "found"_L1)
            helper->writeLine("install");
        else if (kind == "extracting"_L1)
            timer.start();
        else if (kind == "ready"_L1)
            return elapsed(timer);
        else if (kind == "failed"_L1)
            return std::nullopt;
    }
    return std::nullopt;
}

pid_t owner(const QDBusConnection &bus)
{
    const QDBusReply<uint> pid = bus.interface()->servicePid(u"app.corvane.Corvane"_s);
    return pid.isValid() ? pid_t(pid.value()) : 0;
}

/// Whether a helper watches whether the new release answers, to go back when it does not.
bool isWatched(const PrivateSession &session)
{
    return std::ranges::any_of(session.processes(), [](pid_t pid) {
        return QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid)).endsWith("/corvane-updater"_L1);
    });
}

/// How long no program had the key, in milliseconds, while release 1 was replaced by release 2.
std::optional<double> timeGap(
    VirtualDesktop &desktop, ReleaseSite &site, const QDBusConnection &bus)
{
    CorvaneProcess corvane(desktop, site.program());
    XConnection &connection = desktop.connection();
    if (!site.installFirst() || !corvane.start()
        || corvane.ask({u"--check-for-updates"_s}).exitStatus != 0
        || !waitUntil([&] { return !isGrabbed(connection, hotKey); }, updatePatience))
        return std::nullopt;
    QElapsedTimer timer;
    timer.start();
    const bool isBack = waitUntil([&] { return isGrabbed(connection, hotKey); }, updatePatience);
    const double gap = elapsed(timer);
    const bool isNew =
        waitUntil([&] { return owner(bus) > 0 && !isWatched(desktop); }) && site.current() == 2;
    if (const pid_t pid = owner(bus); pid > 0)
        ::kill(pid, SIGTERM);
    const bool hasEnded = waitUntil([&] { return owner(bus) == 0; });
    return isBack && isNew && hasEnded ? std::optional(gap) : std::nullopt;
}

/// How many times as large the program is after so many checks.
std::optional<double> growth(VirtualDesktop &desktop, ReleaseSite &site, int checks)
{
    CorvaneProcess corvane(desktop, site.program());
    if (!site.installFirst() || !corvane.start() || !site.nextRequest())
        return std::nullopt;
    const auto check = [&](int count) {
        for (int i = 0; i < count; ++i) {
            if (corvane.ask({u"--check-for-updates"_s}).exitStatus != 0 || !site.nextRequest())
                return false;
        }
        return true;
    };
    if (!check(warmUpChecks))
        return std::nullopt;
    const auto before = double(corvane.residentKilobytes());
    if (!check(checks))
        return std::nullopt;
    return double(corvane.residentKilobytes()) / before;
}

} // namespace

Measurements measureUpdates(VirtualDesktop &desktop, int updates, int checks)
{
    auto published = ReleaseSite::publish(desktop, ReleaseSite::Libraries::packed);
    if (!published)
        return unexpected<QString>(published.error());
    ReleaseSite &site = **published;
    const auto ratio = growth(desktop, site, checks);
    if (!ratio)
        return unexpected<QString>(u"a check did not end:\n"_s + desktop.logs());
    if (!site.offer(2))
        return unexpected<QString>(u"nothing was offered"_s);
    QList<double> quiet, memory, unpacking, gaps;
    for (int i = 0; i < updates; ++i) {
        const auto check = checkQuietly(site, desktop.environment());
        const auto unpacked = timeUnpacking(site, desktop);
        if (!check || !unpacked)
            return unexpected<QString>(u"the helper found no release:\n"_s + desktop.logs());
        quiet << check->milliseconds;
        memory << check->megabytes;
        unpacking << *unpacked;
    }
    desktop.setVariable(u"CORVANE_UPDATE_TEST_INSTALL"_s, u"1"_s);
    const auto bus = QDBusConnection::connectToBus(
        desktop.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), u"updates"_s);
    for (int i = 0; i < updates; ++i) {
        const auto gap = timeGap(desktop, site, bus);
        if (!gap)
            return unexpected<QString>(u"the release was not installed:\n"_s + desktop.logs());
        gaps << *gap;
    }
    desktop.setVariable(u"CORVANE_UPDATE_TEST_INSTALL"_s, {});
    const auto atMost = [](double value) { return Limit{Limit::Kind::atMost, value}; };
    return QList<Measurement>{
        {u"quiet check, the helper from start to end, median"_s, median(quiet), u"ms"_s,
            atMost(150)},
        {u"its memory, at most"_s, std::ranges::max(memory), u"MB"_s, atMost(60)},
        {u"unpacking, comparing and the test of itself, median"_s, median(unpacking), u"ms"_s,
            atMost(3000)},
        {u"without hot keys during an update, median"_s, median(gaps), u"ms"_s},
        {u"without hot keys during an update, p95"_s, percentile95(gaps), u"ms"_s, atMost(1000)},
        {u"memory after %1 checks / before"_s.arg(checks), *ratio, {}, atMost(1.05)},
    };
}

} // namespace corvane::bench
