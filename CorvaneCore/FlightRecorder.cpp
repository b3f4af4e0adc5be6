#include "FlightRecorder.h"

#include "DataFolder.h"
#include "JsonRecord.h"
#include "StoredJson.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSemaphore>

#include <cstdio>
#include <limits>
#include <sys/stat.h>
#include <tuple>

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

QString withoutWindowTitle(const FlightRecorder::Event &event)
{
    static const QRegularExpression title(
        u" \".*\" moved from "_s, QRegularExpression::DotMatchesEverythingOption);
    const bool mayHaveOne = event.kind == "move"_L1 && event.detail.contains(u'"');
    return mayHaveOne ? QString(event.detail).replace(title, u" moved from "_s) : event.detail;
}

/// Drops what is older, and the titles of windows.
JsonLines::Revision revisionSince(const QDateTime &now, int days)
{
    return [now, days, revised = QByteArray()](QByteArrayView line) mutable {
        auto event = recentRecordOfLine<FlightRecorder::Event>(line, now, days);
        if (!event)
            return std::optional<QByteArrayView>();
        const QString detail = std::exchange(event->detail, withoutWindowTitle(*event));
        if (event->detail == detail)
            return std::optional(line);
        revised = QJsonDocument(event->toJson()).toJson(QJsonDocument::Compact);
        return std::optional(QByteArrayView(revised));
    };
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
        m_lines.revise(revisionSince(now, olderThanDays), std::numeric_limits<qint64>::max());
    });
}

void FlightRecorder::snapshot(const QJsonObject &values)
{
    m_queue.start([this, values] {
        m_snapshot = values;
        m_snapshot.insert(u"writtenAt"_s, encode(QDateTime::currentDateTimeUtc()));
        m_snapshot.insert(u"recentEvents"_s, encode(m_ledger));
        writeSnapshot();
    });
}

void FlightRecorder::readBackward(const std::function<bool(const Event &)> &visit) const
{
    m_lines.readBackward([&visit](QByteArrayView line) {
        const auto event = recordOfLine<Event>(line);
        return !event || visit(*event);
    });
}

void FlightRecorder::flush()
{
    std::ignore = ledger();
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
    const auto added = m_lines.add(event.toJson());
    const auto flushed = m_lines.flush();
    if (!added || !flushed)
        tellWritten(m_lines.path(), added ? flushed.error() : added.error());
    else if (*flushed)
        tellWritten(m_lines.path(), {});
    if (!m_snapshot.isEmpty() && flushed)
        writeSnapshot();
    mirror(event);
}

void FlightRecorder::tellWritten(const QString &path, const QString &problem)
{
    if (m_problems.value(path) == problem)
        return;
    m_problems.insert(path, problem);
    Q_EMIT written(path, problem);
}

void FlightRecorder::tellProblems()
{
    m_queue.start([this] {
        for (const auto &[path, problem] : m_problems.asKeyValueRange()) {
            if (!problem.isEmpty())
                Q_EMIT written(path, problem);
        }
    });
}

void FlightRecorder::mirror(const Event &event) const
{
    if (!m_writesToJournal)
        return;
    // A line is an entry of its own in the journal, and only the first would have the priority.
    const QString text = QString(event.detail).replace(u'\n', u' ');
    const QString line = u"<6>%1 %2: %3\n"_s.arg(subsystem, event.kind, text);
    std::fputs(qUtf8Printable(line), stderr);
}

void FlightRecorder::writeSnapshot()
{
    const QString path = m_directory + u"/snapshot.json"_s;
    const auto saved = writeJson(path, QJsonDocument(m_snapshot));
    tellWritten(path, saved ? QString() : saved.error());
    if (saved)
        m_snapshot = {};
}

} // namespace corvane
