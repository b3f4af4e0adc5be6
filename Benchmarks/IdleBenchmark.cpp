#include "IdleBenchmark.h"

#include "CorvaneProcess.h"
#include "KeyPresser.h"
#include "PanelProcess.h"
#include "Programs.h"

#include <QtCore/QDir>

#include <thread>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr double megabytesResident = 45;

qint64 field(const QByteArray &status, const char *name)
{
    for (const QByteArray &line : status.split('\n')) {
        if (line.startsWith(name))
            return line.mid(line.indexOf(':') + 1).trimmed().toLongLong();
    }
    return 0;
}

/// How often any thread of the process has been put on or off a processor.
qint64 contextSwitches(pid_t pid)
{
    qint64 switches = 0;
    const QString tasks = u"/proc/%1/task"_s.arg(pid);
    for (const QString &task : QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(u"%1/%2/status"_s.arg(tasks, task));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QByteArray status = file.readAll();
        switches +=
            field(status, "voluntary_ctxt_switches") + field(status, "nonvoluntary_ctxt_switches");
    }
    return switches;
}

/// What makes the program as large as it gets before a window opens.
[[nodiscard]] bool openMenuOnce(VirtualDesktop &desktop, CorvaneProcess &corvane)
{
    WindowProbe popups(desktop.connection());
    if (corvane.ask({u"--pop-menu"_s}).exitStatus != 0
        || !waitUntil([&] { return !popups.openMenus(corvane.pid()).isEmpty(); }))
        return false;
    KeyPresser(desktop.connection()).press({0, Key::escape});
    return waitUntil([&] { return popups.openMenus(corvane.pid()).isEmpty(); });
}

} // namespace

Measurements measureIdle(VirtualDesktop &desktop, std::chrono::seconds duration)
{
    CorvaneProcess corvane(desktop, corvaneProgram);
    if (!corvane.start())
        return unexpected<QString>(u"corvane did not start:\n%1"_s.arg(desktop.logs()));
    if (const auto trial = corvane.place(u"center"_s); trial.exitStatus != 0)
        return unexpected<QString>(u"corvane may not move windows: %1"_s.arg(trial.reason()));
    const auto panel = PanelProcess::start(desktop);
    if (!panel)
        return unexpected<QString>(panel.error());
    if (!waitUntil([&] { return (*panel)->showsIcon(); }))
        return unexpected<QString>(u"the panel showed no icon of corvane's"_s);
    if (!openMenuOnce(desktop, corvane))
        return unexpected<QString>(u"the menu did not open and close"_s);
    const auto switches = [&] { return contextSwitches(corvane.pid()); };

    // A new panel moves about for a second or two.
    const qint64 before = settled(switches, Milliseconds{3000}, Milliseconds{20000});
    std::this_thread::sleep_for(duration);
    const qint64 after = switches();

    if (!corvane.isRunning())
        return unexpected<QString>(u"corvane ended by itself"_s);
    return QList<Measurement>{
        {u"wake-ups in %1 s"_s.arg(duration.count()), static_cast<double>(after - before), {},
            Limit{Limit::Kind::atMost, 0}},
        {u"resident memory"_s, static_cast<double>(corvane.residentKilobytes()) / 1024, u"MB"_s,
            Limit{Limit::Kind::atMost, megabytesResident}},
    };
}

} // namespace corvane::bench
