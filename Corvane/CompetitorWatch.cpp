#include "CompetitorWatch.h"

#include "Notify.h"
#include "Platform.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

void CompetitorWatch::start()
{
    Applications &applications = Platform::current().applications();
    connect(&applications, &Applications::launched, this, &CompetitorWatch::refreshSoon);
    connect(&applications, &Applications::terminated, this, &CompetitorWatch::refreshSoon);
    connect(&m_model, &AppModel::competitorsChanged, this, &CompetitorWatch::tell);
    tell();
}

// At login many applications come at the same time; since a refresh reads every process, one serves
// them all.
void CompetitorWatch::refreshSoon()
{
    if (std::exchange(m_isRefreshPending, true))
        return;
    Platform::current().clock().after(Clock::Duration{0}, this, [this] {
        m_isRefreshPending = false;
        m_model.refreshCompetitors();
    });
}

void CompetitorWatch::tell()
{
    const QStringList running = names(m_model.competitors);
    const QStringList known = std::exchange(m_told, running);
    const bool isNews = std::ranges::any_of(
        running, [&known](const QString &name) { return !known.contains(name); });
    if (!isNews)
        return;
    const QString joined = running.join(tr(" and "));
    const bool isOne = running.size() == 1;
    const QString title = isOne ? tr("%1 is also running") : tr("%1 are also running");
    const QString body = isOne
        ? tr("Two window managers answering the same keys will fight over one window. Quit it from "
             "Corvane's menu.")
        : tr("Two window managers answering the same keys will fight over one window. Quit %1 from "
             "Corvane's menu.")
              .arg(joined);
    notify(NotificationKind::rivals, title.arg(joined), body);
}

} // namespace corvane
