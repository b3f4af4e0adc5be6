#include "ActivityLog.h"

#include "DataFolder.h"
#include "JsonRecord.h"

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

ActivityLog::ActivityLog() : ActivityLog(dataFolder()) { }

ActivityLog::ActivityLog(const QString &directory) : m_lines(directory + u"/activity.jsonl"_s) { }

QUrl ActivityLog::url() const
{
    return QUrl::fromLocalFile(m_lines.path());
}

expected<void, QString> ActivityLog::append(const ActivityEntry &entry) const
{
    return m_lines.append(entry.toJson());
}

QList<ActivityEntry> ActivityLog::recent(int limit) const
{
    QList<ActivityEntry> entries;
    if (limit <= 0)
        return entries;
    m_lines.readBackward([&](QByteArrayView line) {
        if (auto entry = recordOfLine<ActivityEntry>(line))
            entries.append(*std::move(entry));
        return entries.size() < limit;
    });
    std::ranges::reverse(entries);
    return entries;
}

expected<void, QString> ActivityLog::prune(int olderThanDays, const QDateTime &now) const
{
    return m_lines.keep(keepsRecordsSince<ActivityEntry>(now, olderThanDays), entryLimit);
}

} // namespace corvane
