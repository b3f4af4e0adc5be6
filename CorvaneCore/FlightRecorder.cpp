#include "FlightRecorder.h"

#include "DataFolder.h"
#include "JsonRecord.h"
#include "StoredJson.h"

#include <QtCore/QSemaphore>

#include <cstdio>
#include <limits>
#include <sys/stat.h>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView subsystem{"com.orvalle.corvane.flightrecorder"};

/// The journal says by device and inode which stream it reads: a child with another one inherits
/// the variable all the same.
bool standardErrorIsJournal()
{
    struct stat status;
    return ::fstat(STDERR_FILENO, &status) == 0
        && qgetenv("JOURNAL_STREAM")
        == QByteArray::number(status.st_dev) + ':' + QByteArray::number(status.st_ino);
}

} // namespace

QJsonObject FlightRecorder::Event::toJson() const
{
    return {{u"date"_s, encode(date)}, {u"kind"_s, kind}, {u"detail"_s, detail}};
}

std::optional<FlightRecorder::Event> FlightRecorder::Event::fromJson(const QJsonValue &json)
{
    DecodeProblems problems;
    StrictReader reader(json, problems);
    Event event;
    event.date = reader.require<QDateTime>("date"_L1);
    event.kind = reader.require<QString>("kind"_L1);
    event.detail = reader.require<QString>("detail"_L1);
    return reader.result(std::move(event));
}

FlightRecorder &FlightRecorder::shared()
{
    static FlightRecorder recorder(dataFolder());
    return recorder;
}

FlightRecorder::FlightRecorder(QString directory)
    : m_directory(std::move(directory))
    , m_lines(m_directory + u"/diagnostics.jsonl"_s)
    , m_writesToJournal(standardErrorIsJournal())
{
    m_queue.setMaxThreadCount(1);
}

FlightRecorder::~FlightRecorder()
{
    flush();
}

void FlightRecorder::record(const QString &kind, const QString &detail)
{
    const Event event{QDateTime::currentDateTimeUtc(), kind, detail};
    m_queue.start([this, event] { write(event); });
}

void FlightRecorder::prune(int olderThanDays, const QDateTime &now)
{
    m_queue.start([this, olderThanDays, now] {
        m_lines.keep(
            keepsRecordsSince<Event>(now, olderThanDays), std::numeric_limits<qint64>::max());
    });
}

void FlightRecorder::snapshot(const QJsonObject &values)
{
    m_queue.start([this, values] { writeSnapshot(values); });
}

void FlightRecorder::flush()
{
    static_cast<void>(ledger());
}

QList<FlightRecorder::Event> FlightRecorder::ledger()
{
    QList<Event> events;
    QSemaphore done;
    m_queue.start([this, &events, &done] {
        events = m_ledger;
        done.release();
    });
    done.acquire();
    return events;
}

void FlightRecorder::write(const Event &event)
{
    if (m_ledger.size() >= ledgerLimit)
        m_ledger.removeFirst();
    m_ledger.append(event);
    m_lines.append(event.toJson());
    mirror(event);
}

void FlightRecorder::mirror(const Event &event) const
{
    if (!m_writesToJournal && m_mirror == Mirror::journal)
        return;
    // A line is an entry of its own in the journal, and only the first would have the priority.
    const QString text = QString(event.detail).replace(u'\n', u' ');
    const QString line = u"%1%2 %3: %4\n"_s.arg(
        m_writesToJournal ? u"<6>"_s : QString(), subsystem, event.kind, text);
    std::fputs(qUtf8Printable(line), stderr);
}

void FlightRecorder::writeSnapshot(QJsonObject values) const
{
    values.insert(u"writtenAt"_s, encode(QDateTime::currentDateTimeUtc()));
    values.insert(u"recentEvents"_s, encode(m_ledger));
    static_cast<void>(writeJson(m_directory + u"/snapshot.json"_s, QJsonDocument(values)));
}

} // namespace corvane
