#include "IdleBenchmark.h"

#include "CorvaneProcess.h"
#include "KeyPresser.h"
#include "PanelProcess.h"
#include "Programs.h"
#include "WakeUps.h"

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

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
    const auto count = wakeUps(corvane.pid(), duration);

    if (!corvane.isRunning())
        return unexpected<QString>(u"corvane ended by itself"_s);
    return QList<Measurement>{
        {u"wake-ups in %1 s"_s.arg(duration.count()), static_cast<double>(count), {},
            Limit{Limit::Kind::atMost, 0}},
        {u"resident memory"_s, static_cast<double>(corvane.residentKilobytes()) / 1024, u"MB"_s,
            Limit{Limit::Kind::atMost, megabytesResident}},
    };
}

} // namespace corvane::bench
