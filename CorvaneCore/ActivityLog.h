#pragma once

#include "ActivityEntry.h"
#include "JsonLines.h"

#include <QtCore/QUrl>

namespace corvane {

/// The move history: every window moved, every move that an application refused. Several processes
/// may share it. A caller may ignore a failure: nothing stops because of it.
class ActivityLog final
{
public:
    /// The most entries that outlive a pruning.
    static constexpr int entryLimit = 100'000;

    /// In the data folder.
    ActivityLog();
    explicit ActivityLog(const QString &directory);

    [[nodiscard]] QUrl url() const;

    /// Adds entries. False while another process holds the file; what is not written now is written
    /// with the next entries. The error is one sentence.
    expected<bool, QString> append(const QList<ActivityEntry> &entries);
    expected<bool, QString> append(const ActivityEntry &entry) { return append(QList{entry}); }
    /// The newest `limit` entries, the newest last.
    [[nodiscard]] QList<ActivityEntry> recent(int limit) const;
    /// Drops the entries that are older than so many days, and lines that cannot be read.
    expected<void, QString> prune(
        int olderThanDays, const QDateTime &now = QDateTime::currentDateTimeUtc()) const;

private:
    JsonLines m_lines;
};

} // namespace corvane
