#include "ReportBenchmark.h"

#include "ActivityLog.h"
#include "Redaction.h"
#include "ReportBuilder.h"
#include "SampleMoves.h"
#include "Samples.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>

#include <chrono>

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int eventCount = 20'000;
constexpr int moveCount = 100'000;
constexpr int repetitions = 11;

/// As a busy month leaves them: nearly all of them moves.
bool writeEvents(const QString &path, const QDateTime &now)
{
    QByteArray text;
    for (int number = 0; number < eventCount; ++number) {
        const FlightRecorder::Event event{now.addSecs(number - eventCount), u"move"_s,
            u"leftHalf: Text Editor moved from 120,80 900×700 to 0,25 960×1055 on Built-in %1"_s
                .arg(number)};
        text += QJsonDocument(event.toJson()).toJson(QJsonDocument::Compact) + '\n';
    }
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(text) == text.size();
}

/// In milliseconds.
double since(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

Limit atMost(double value)
{
    return {Limit::Kind::atMost, value};
}

} // namespace

Measurements measureReport()
{
    const QTemporaryDir folder;
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const ActivityLog log(folder.path());
    if (!writeEvents(folder.filePath(u"diagnostics.jsonl"_s), now)
        || !writeSampleMoves(
            log.url().toLocalFile(), moveCount, [&now](int) { return now.addDays(-1); }))
        return unexpected<QString>(u"the files could not be written"_s);

    const FlightRecorder recorder(folder.path());
    QList<double> builds;
    QList<double> texts;
    QList<double> documents;
    qsizetype size = 0;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        ProblemReport report{.date = now, .text = {}, .facts = {}, .events = {}};
        auto start = std::chrono::steady_clock::now();
        addEvents(report, recorder, Redaction());
        builds << since(start);
        start = std::chrono::steady_clock::now();
        const bool isWhole = report.toText().count(u"Editor"_s) == eventCount;
        texts << since(start);
        start = std::chrono::steady_clock::now();
        size = report.toJson().size();
        documents << since(start);
        if (!isWhole)
            return unexpected<QString>(u"the report lacks events"_s);
    }
    return QList<Measurement>{
        {u"gather 20,000 events, redacted"_s, median(builds), u"ms"_s, atMost(100)},
        {u"as a text"_s, median(texts), u"ms"_s, atMost(100)},
        {u"as a document"_s, median(documents), u"ms"_s, atMost(200)},
        {u"the document's size"_s, double(size) / 1024, u"KiB"_s, atMost(4096)},
    };
}

} // namespace corvane::bench
