#include "TremorLogModel.h"

#include "OneLine.h"

#include <QtCore/QLocale>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString frameText(const QList<double> &frame)
{
    return frame.size() == 4
        ? u"%1, %2, %3 × %4"_s.arg(frame[0]).arg(frame[1]).arg(frame[2]).arg(frame[3])
        : QString();
}

} // namespace

void TremorLogModel::setEntries(const QList<ActivityEntry> &entries)
{
    if (entries == m_entries)
        return;
    m_entries = entries;
    rebuild();
}

void TremorLogModel::setFilter(Kind kind, const QString &text)
{
    if (kind == m_kind && text == m_text)
        return;
    m_kind = kind;
    m_text = text;
    rebuild();
}

bool TremorLogModel::isShown(const ActivityEntry &entry) const
{
    if (m_kind != Kind::all && entry.isRefusal() != (m_kind == Kind::refused))
        return false;
    return std::ranges::any_of(std::array{entry.title, entry.app, entry.window},
        [this](const QString &text) { return text.contains(m_text, Qt::CaseInsensitive); });
}

void TremorLogModel::rebuild()
{
    beginResetModel();
    m_rows.clear();
    qsizetype day = -1;
    for (auto entry = m_entries.crbegin(); entry != m_entries.crend(); ++entry) {
        if (!isShown(*entry))
            continue;
        const QDate date = entry->date.toLocalTime().date();
        const bool isFirst = day < 0 || m_rows[day].day != date;
        if (isFirst) {
            if (!m_rows.isEmpty())
                m_rows.last().isLast = true;
            day = m_rows.size();
            m_rows << Row{.entry = {}, .day = date};
        }
        ++(entry->isRefusal() ? m_rows[day].refused : m_rows[day].moves);
        m_rows << Row{.entry = *entry, .day = date, .isFirst = isFirst};
    }
    if (!m_rows.isEmpty())
        m_rows.last().isLast = true;
    endResetModel();
}

QModelIndex TremorLogModel::indexOf(const QString &entryId) const
{
    const auto found = std::ranges::find_if(
        m_rows, [&](const Row &row) { return row.entry && row.entry->id() == entryId; });
    return found == m_rows.end() ? QModelIndex() : index(int(found - m_rows.begin()));
}

QString TremorLogModel::dayTitle(const QDate &day)
{
    //: The date above a day's moves: weekday, month and day.
    return QLocale().toString(day, tr("ddd MMM d"));
}

QString TremorLogModel::timeText(const ActivityEntry &entry)
{
    //: The time of a move.
    return QLocale().toString(entry.date.toLocalTime().time(), tr("h:mm AP"));
}

QString TremorLogModel::counts(const Row &day)
{
    QStringList counts;
    if (day.moves > 0)
        counts << tr("%n move(s)", nullptr, day.moves);
    if (day.refused > 0)
        counts << tr("%n refused", nullptr, day.refused);
    return counts.join(u" · "_s);
}

QString TremorLogModel::detail(const ActivityEntry &entry)
{
    constexpr qsizetype longest = 200;
    if (entry.isRefusal())
        return u"%1 %2"_s.arg(oneLine(entry.app), oneLine(entry.window, longest));
    const QString window = oneLine(entry.window, longest);
    return window.isEmpty() ? oneLine(entry.app) : u"%1 — %2"_s.arg(oneLine(entry.app), window);
}

QString TremorLogModel::line(const ActivityEntry &entry)
{
    QStringList parts{timeText(entry), oneLine(entry.title), detail(entry)};
    if (entry.isRefusal())
        parts.insert(1, tr("REFUSED"));
    parts << oneLine(entry.display);
    parts.removeAll(QString());
    return parts.join(u", "_s);
}

int TremorLogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant TremorLogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Row &row = this->row(index);
    const bool isFrom = row.entry && !row.entry->from.isEmpty();
    const QString frames = isFrom
        ? tr("from %1 to %2").arg(frameText(row.entry->from), frameText(row.entry->to))
        : QString();
    switch (role) {
    case Qt::DisplayRole:
        return row.entry ? line(*row.entry) : dayTitle(row.day);
    case Qt::ToolTipRole:
        return frames;
    case Qt::AccessibleTextRole: {
        if (!row.entry)
            return QString(dayTitle(row.day) + u", "_s + counts(row));
        QStringList parts{line(*row.entry)};
        if (row.isFirst) // the day's row is never the current one
            parts.prepend(dayTitle(row.day));
        if (!frames.isEmpty())
            parts << frames;
        return parts.join(u", "_s);
    }
    default:
        return {};
    }
}

Qt::ItemFlags TremorLogModel::flags(const QModelIndex &index) const
{
    return index.isValid() && row(index).entry ? Qt::ItemIsSelectable | Qt::ItemIsEnabled
                                               : Qt::NoItemFlags;
}

} // namespace corvane
