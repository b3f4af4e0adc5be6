#include "AppPickerModel.h"

#include "OneLine.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

void AppPickerModel::setCandidates(const QList<AppCandidate> &candidates)
{
    m_candidates = candidates;
    rebuild();
}

void AppPickerModel::setSearch(const QString &text)
{
    m_search = text;
    rebuild();
}

int AppPickerModel::offeredCount() const
{
    return int(std::ranges::count_if(m_candidates,
        [](const AppCandidate &each) { return !each.isHidden || each.windows.has_value(); }));
}

void AppPickerModel::rebuild()
{
    beginResetModel();
    m_rows.clear();
    const QList<AppCandidate> shown = found(m_candidates, m_search);
    m_shownCount = int(shown.size());
    QString last;
    for (const AppCandidate &candidate : shown) {
        const QString section = candidate.windows ? tr("Running") : tr("All Apps");
        const bool isFirst = std::exchange(last, section) != section;
        if (isFirst)
            m_rows << Row{section, {}};
        m_rows << Row{isFirst ? section : QString(), candidate};
    }
    endResetModel();
}

const AppCandidate *AppPickerModel::candidate(const QModelIndex &index) const
{
    return index.isValid() && m_rows[index.row()].candidate ? &*m_rows[index.row()].candidate
                                                            : nullptr;
}

QModelIndex AppPickerModel::first() const
{
    return index(1); // after its section's title
}

QModelIndex AppPickerModel::indexOf(const QString &bundleIdentifier) const
{
    const auto row = std::ranges::find_if(m_rows, [&](const Row &each) {
        return each.candidate && each.candidate->app.bundleID == bundleIdentifier;
    });
    return row == m_rows.end() ? QModelIndex() : index(int(row - m_rows.begin()));
}

int AppPickerModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant AppPickerModel::data(const QModelIndex &index, int role) const
{
    const AppCandidate *candidate = this->candidate(index);
    const QString section = index.isValid() ? m_rows[index.row()].section : QString();
    const QString name = candidate ? oneLine(candidate->app.name) : section;
    switch (role) {
    case Qt::DisplayRole:
        return name;
    case Qt::AccessibleTextRole: // a section's title is never the current row
        return candidate && !section.isEmpty() ? section + u", "_s + name : name;
    case Qt::AccessibleDescriptionRole:
    case Qt::ToolTipRole:
        return candidate ? candidate->detail() : QString();
    default:
        return {};
    }
}

Qt::ItemFlags AppPickerModel::flags(const QModelIndex &index) const
{
    return candidate(index) ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

} // namespace corvane
