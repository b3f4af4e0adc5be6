#pragma once

#include "ActivityEntry.h"

#include <QtCore/QAbstractListModel>

namespace corvane {

/// The move history as a list, the newest first: for each day a row of its date and counts, then its
/// entries.
class TremorLogModel final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum class Kind {
        all,
        moves,
        refused,
    };

    struct Row {
        std::optional<ActivityEntry> entry; ///< absent: the day
        QDate day;
        int moves = 0; ///< of the day, as filtered
        int refused = 0;
        bool isFirst = false; ///< of the day's entries
        bool isLast = false;
    };

    using QAbstractListModel::QAbstractListModel;

    /// The newest last.
    void setEntries(const QList<ActivityEntry> &entries);
    /// Shows only entries of the kind in which the text occurs: in application, placement or title.
    void setFilter(Kind kind, const QString &text);
    [[nodiscard]] bool hasEntries() const { return !m_entries.isEmpty(); }

    [[nodiscard]] const Row &row(const QModelIndex &index) const { return m_rows[index.row()]; }
    /// The row of the entry with this id, if it is shown.
    [[nodiscard]] QModelIndex indexOf(const QString &entryId) const;
    /// An entry as one line of plain text.
    [[nodiscard]] static QString line(const ActivityEntry &entry);
    [[nodiscard]] static QString dayTitle(const QDate &day);
    [[nodiscard]] static QString timeText(const ActivityEntry &entry);
    [[nodiscard]] static QString counts(const Row &day);
    /// What is said beside the placement.
    [[nodiscard]] static QString detail(const ActivityEntry &entry);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void rebuild();
    [[nodiscard]] bool isShown(const ActivityEntry &entry) const;

    QList<ActivityEntry> m_entries;
    QList<Row> m_rows;
    Kind m_kind = Kind::all;
    QString m_text;
};

} // namespace corvane
