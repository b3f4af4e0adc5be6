#include "LayoutEngine.h"

#include "LayoutRun.h"
#include "Pause.h"

#include <QtCore/QCoreApplication>

namespace corvane {

QCoro::Task<QList<PaneResult>> LayoutEngine::apply(
    WindowLayout layout, Clock::Duration launchWait, Clock::Duration retryFor, Follow follow)
{
    LayoutRun run(*this, m_opener, layout, {launchWait, retryFor, follow});
    m_run = &run;
    if (!Platform::current().windows().isTrusted()) {
        run.refuseAll(QCoreApplication::translate("PaneResult", "accessibility not granted"));
    } else {
        run.begin();
        while (m_run == &run && run.isUnderWay()) {
            const Pause pause{run.pause()};
            co_await pause;
            if (m_run == &run)
                run.goOn();
        }
        run.end(m_run == &run ? LayoutRun::End::timeIsUp : LayoutRun::End::superseded);
    }
    if (m_run == &run)
        m_run = nullptr;
    co_return run.results();
}

void LayoutEngine::leaveAlone(const AXWindow &window)
{
    if (m_run)
        m_run->leaveAlone(window);
}

} // namespace corvane
