#include "ActivityLog.h"
#include "JsonRecord.h"
#include "Require.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

constexpr int days = 30;
const QDateTime now = QDateTime::fromString(u"2026-03-01T12:00:00Z"_s, Qt::ISODate);

/// The readable entries of a file, the plain way.
QList<ActivityEntry> entriesOf(const QByteArray &file)
{
    QList<ActivityEntry> entries;
    for (const QByteArray &line : file.split('\n')) {
        if (const auto entry = recordOfLine<ActivityEntry>(line))
            entries << *entry;
    }
    return entries;
}

void requireSurvivesItsLine(const ActivityEntry &entry)
{
    const QByteArray line = QJsonDocument(entry.toJson()).toJson(QJsonDocument::Compact);

    require(!line.contains('\n') && recordOfLine<ActivityEntry>(line) == entry);
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QFile::WriteOnly) && file.write(content) == content.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, size_t size)
{
    static const QTemporaryDir folder(u"/dev/shm/activity-fuzzer-XXXXXX"_s);
    ActivityLog log(folder.path());
    const QByteArray file(reinterpret_cast<const char *>(bytes), qsizetype(size));
    QList<ActivityEntry> entries = entriesOf(file);
    for (const ActivityEntry &entry : entries)
        requireSurvivesItsLine(entry);
    const auto extra = ActivityEntry::refused(Placement::center, {}, {}, {}, now);
    write(log.url().toLocalFile(), file);

    require(log.recent(1000) == entries.last(qMin<qsizetype>(1000, entries.size())));
    require(log.append(extra).has_value() && log.recent(1) == QList{extra});
    require(log.prune(days, now).has_value());

    entries << extra;
    entries.removeIf([](const ActivityEntry &entry) { return entry.date < now.addDays(-days); });
    require(log.recent(static_cast<int>(entries.size()) + 1) == entries);
    return 0;
}
