#include "ReportSheetBenchmark.h"

#include "FlightRecorder.h"
#include "Programs.h"
#include "SampleMoves.h"
#include "Samples.h"
#include "TimedLines.h"

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace corvane::bench {

using namespace desktop;
using namespace Qt::StringLiterals;

namespace {

constexpr int eventCount = 20'000;
constexpr int moveCount = 100'000;

/// Diagnostics a minute apart, the newest of now. False when they could not be written.
bool writeEvents(const QString &path)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    QByteArray text;
    for (int number = 0; number < eventCount; ++number) {
        const FlightRecorder::Event event{now.addSecs(60LL * (number - eventCount)),
            u"window-watcher"_s, u"window watcher pruned to %1 originals"_s.arg(number)};
        text += QJsonDocument(event.toJson()).toJson(QJsonDocument::Compact) + '\n';
    }
    QFile file(path);
    return file.open(QFile::WriteOnly) && file.write(text) == text.size();
}

} // namespace

Measurements measureReportSheet(VirtualDesktop &desktop, int openings)
{
    const StoredMoves moves(desktop, moveCount); // which make the folder, too
    const QString path = desktop.dataFolder() + u"/Corvane/diagnostics.jsonl"_s;
    QFile::remove(path);
    if (!moves.areWritten() || !writeEvents(path))
        return unexpected<QString>(u"the diagnostics or the moves could not be written"_s);
    const auto lines =
        timedLines(desktop, reportSheetProgram, {QString::number(std::max(2, openings))});
    QFile::remove(path);
    if (!lines)
        return unexpected<QString>(lines.error());
    const TimedLines &times = *lines;
    const auto ms = [](const QString &name, double value) {
        return Measurement{name, value, u"ms"_s, Limit{Limit::Kind::atMost, 200}};
    };
    return QList<Measurement>{
        ms(u"first request to the sheet's painting"_s, times["first"].first()),
        ms(u"first request to what is sent, 20,000 diagnostics"_s, times["firstContents"].first()),
        ms(u"later request to the sheet's painting, median"_s, median(times["later"])),
        ms(u"later request to what is sent, median"_s, median(times["laterContents"])),
        ms(u"later request to what is sent, longest"_s, std::ranges::max(times["laterContents"])),
    };
}

} // namespace corvane::bench
