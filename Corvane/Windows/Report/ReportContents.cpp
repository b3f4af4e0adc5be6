#include "ReportContents.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

void ReportContents::setReport(const ProblemReport &report)
{
    beginResetModel();
    m_head = QStringList{u"Date: "_s + report.date.toLocalTime().toString(Qt::ISODate)};
    for (const ProblemReport::Fact &fact : report.facts)
        m_head << u"%1: %2"_s.arg(fact.title, fact.value);
    if (report.isShortened)
        m_head << tr("Older events were left out.");
    m_events = report.events;
    const auto longest = std::ranges::max_element(m_events, {},
        [](const FlightRecorder::Event &event) { return event.kind.size() + event.detail.size(); });
    m_length = longest == m_events.end() ? 0 : ProblemReport::line(*longest).size();
    for (const QString &line : std::as_const(m_head))
        m_length = std::max(m_length, line.size());
    endResetModel();
}

// A line is made when it is shown, since there may be tens of thousands.
QString ReportContents::line(int row) const
{
    return row < m_head.size() ? m_head[row] : ProblemReport::line(m_events[row - m_head.size()]);
}

int ReportContents::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_head.size() + m_events.size());
}

QVariant ReportContents::data(const QModelIndex &index, int role) const
{
    return index.isValid() && role == Qt::DisplayRole ? line(index.row()) : QVariant();
}

} // namespace corvane
