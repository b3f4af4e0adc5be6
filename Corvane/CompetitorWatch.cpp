#include "CompetitorWatch.h"

#include "Platform.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

void CompetitorWatch::start()
{
    Applications &applications = Platform::current().applications();
    connect(&applications, &Applications::launched, &m_model, &AppModel::refreshCompetitors);
    connect(&applications, &Applications::terminated, &m_model, &AppModel::refreshCompetitors);
    connect(&m_model, &AppModel::competitorsChanged, this, &CompetitorWatch::tell);
    m_model.refreshCompetitors();
    tell();
}

void CompetitorWatch::tell()
{
    const QStringList running = names(m_model.competitors);
    const QStringList known = std::exchange(m_told, running);
    const bool isNews = std::ranges::any_of(
        running, [&known](const QString &name) { return !known.contains(name); });
    if (!isNews || !m_model.onNotify)
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
    m_model.onNotify(title.arg(joined), body);
}

} // namespace corvane
