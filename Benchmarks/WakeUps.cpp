#include "WakeUps.h"

#include "Waiting.h"

#include <QtCore/QDir>
#include <QtCore/QHash>

#include <thread>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr Milliseconds patienceForRest{20000};

qint64 field(const QByteArray &status, const char *name)
{
    for (const QByteArray &line : status.split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
    }
    return 0;
}

/// Of each thread, how often it has been put on or off a processor.
QHash<QString, qint64> contextSwitches(pid_t pid)
{
    QHash<QString, qint64> switches;
    const QString tasks = u"/proc/%1/task"_s.arg(pid);
    for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(u"%1/%2/status"_s.arg(tasks, task));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray status = file.readAll();
        switches[task] =
            field(status, "voluntary_ctxt_switches") + field(status, "nonvoluntary_ctxt_switches");
    }
    return switches;
}

} // namespace

void waitForRest(pid_t pid, Milliseconds quiet)
{
    settled([pid] { return contextSwitches(pid); }, quiet, patienceForRest);
}

long long wakeUps(pid_t pid, std::chrono::seconds duration)
{
    waitForRest(pid, Milliseconds{3000});
    const auto before = contextSwitches(pid);
    std::this_thread::sleep_for(duration);
    const auto after = contextSwitches(pid);
    qint64 count = 0;
    for (const auto &[task, switches] : before.asKeyValueRange())
        count += after.value(task, switches + 1) - switches; // at least one, to end
    for (const auto &[task, switches] : after.asKeyValueRange())
        count += before.contains(task) ? 0 : switches + 1;
    return count;
}

int stirs(pid_t pid, std::chrono::seconds duration)
{
    constexpr Milliseconds pause{100};
    waitForRest(pid, Milliseconds{3000});
    const auto end = std::chrono::steady_clock::now() + duration;
    int count = 0;
    bool wasAtRest = true;
    for (auto before = contextSwitches(pid); std::chrono::steady_clock::now() < end;) {
        std::this_thread::sleep_for(pause);
        const auto after = contextSwitches(pid);
        const bool isAtRest = after == before;
        count += wasAtRest && !isAtRest;
        wasAtRest = isAtRest;
        before = after;
    }
    return count;
}

} // namespace corvane::bench
