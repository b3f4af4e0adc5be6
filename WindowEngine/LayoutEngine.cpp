#include "LayoutEngine.h"

#include "LayoutRun.h"
#include "Pause.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr Clock::Duration pollPause = 250ms;
constexpr Clock::Duration retryPause = 600ms;

QString retryReport(int rounds, qsizetype unsettled)
{
    return u"waited out %1 round%2 for apps still coming up; %3 never settled"_s.arg(rounds)
        .arg(rounds == 1 ? QString() : u"s"_s)
        .arg(unsettled);
}

} // namespace

QCoro::Task<QList<PaneResult>> LayoutEngine::apply(
    WindowLayout layout, Clock::Duration launchWait, Clock::Duration retryFor)
{
    const quint64 number = ++m_latestRun;
    Platform &platform = Platform::current();
    LayoutRun run(*this, layout);
    if (!platform.windows().isTrusted()) {
        run.refuseAll(QCoreApplication::translate("PaneResult", "accessibility not granted"));
        co_return run.results();
    }
    LayoutRun::Panes panes = run.begin();
    const auto waits = [&](Clock::Duration deadline) {
        return number == m_latestRun && platform.clock().now() < deadline;
    };

    const Clock::Duration launchDeadline = platform.clock().now() + launchWait;
    while (run.isComingUp() && waits(launchDeadline)) {
        const Pause pause{pollPause};
        co_await pause;
    }

    if (number == m_latestRun)
        panes = run.place(panes);
    const Clock::Duration retryDeadline = platform.clock().now() + retryFor;
    int rounds = 0;
    while (!panes.isEmpty() && waits(retryDeadline)) {
        const Pause pause{retryPause};
        co_await pause;
        if (number != m_latestRun)
            break;
        panes = run.place(panes);
        ++rounds;
    }
    if (rounds > 0 && onDiagnostic)
        onDiagnostic(retryReport(rounds, panes.size()));

    run.giveUp(panes);
    if (number == m_latestRun)
        run.bringForward();
    co_return run.results();
}

} // namespace corvane
