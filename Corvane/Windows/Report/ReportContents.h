#pragma once

#include "ProblemReport.h"

#include <QtCore/QAbstractListModel>

namespace corvane {

/// All that goes with a report beside the user's words, line by line.
class ReportContents final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setReport(const ProblemReport &report);

    /// Of the longest line, in characters.
    [[nodiscard]] qsizetype length() const { return m_length; }
    [[nodiscard]] QString line(int row) const;
    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;

private:
    QStringList m_head; ///< before the events
    QList<FlightRecorder::Event> m_events;
    qsizetype m_length = 0;
};

} // namespace corvane
