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

expected<bool, QString> ActivityLog::append(const QList<ActivityEntry> &entries)
{
    expected<void, QString> added;
    for (const ActivityEntry &entry : entries) {
        if (auto result = m_lines.add(entry.toJson()); !result)
            added = std::move(result);
    }
    auto written = m_lines.flush();
    return added ? written : unexpected<QString>(added.error());
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
    const auto revision = [&](QByteArrayView line) {
        const bool isKept = recentRecordOfLine<ActivityEntry>(line, now, olderThanDays).has_value();
        return isKept ? std::optional(line) : std::nullopt;
    };
    return m_lines.revise(revision, entryLimit);
}

} // namespace corvane
