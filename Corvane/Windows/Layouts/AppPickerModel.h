#pragma once

#include "AppCandidates.h"

#include <QtCore/QAbstractListModel>

namespace corvane {

/// The applications that a pane can be given, as a list of two sections: those that run, and all
/// others. Each begins with a row of its title, if it has any.
class AppPickerModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    void setCandidates(const QList<AppCandidate> &candidates);
    /// Shows only those that the text fits.
    void setSearch(const QString &text);
    [[nodiscard]] bool hasCandidates() const { return !m_candidates.isEmpty(); }
    /// How many there are without a search.
    [[nodiscard]] int offeredCount() const;
    [[nodiscard]] int shownCount() const { return m_shownCount; }

    /// Null for a section's title.
    [[nodiscard]] const AppCandidate *candidate(const QModelIndex &index) const;
    [[nodiscard]] QModelIndex first() const;
    /// The row of this application, if it is shown.
    [[nodiscard]] QModelIndex indexOf(const QString &bundleIdentifier) const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    struct Row {
        QString section; ///< of its first row, too
        std::optional<AppCandidate> candidate;
    };

    void rebuild();

    QList<AppCandidate> m_candidates;
    QString m_search;
    QList<Row> m_rows;
    int m_shownCount = 0;
};

} // namespace corvane
