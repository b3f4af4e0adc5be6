#include "StoreBenchmark.h"

#include "ActivityLog.h"
#include "LayoutStore.h"
#include "SampleLayouts.h"
#include "SampleMoves.h"
#include "Samples.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QTemporaryDir>

#include <chrono>
#include <functional>

namespace corvane::bench {

using namespace Qt::StringLiterals;

namespace {

constexpr int historyLines = 100'000;
constexpr int layoutCount = 500;

/// In milliseconds.
double duration(const std::function<void()> &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

double medianDuration(int repetitions, const std::function<void()> &action)
{
    QList<double> samples;
    for (int repetition = 0; repetition < repetitions; ++repetition)
        samples << duration(action);
    return median(samples);
}

/// Half of it old enough to be pruned.
bool writeHistory(const QString &path)
{
    const QDateTime now = QDateTime::currentDateTimeUtc();
    return writeSampleMoves(path, historyLines,
        [&](int number) { return now.addDays(number < historyLines / 2 ? -40 : -1); });
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

Limit atMost(double value)
{
    return {Limit::Kind::atMost, value};
}

} // namespace

Measurements measureStores()
{
    const QTemporaryDir folder;
    ActivityLog log(folder.path());
    const LayoutStore layouts(folder.path());
    if (!writeHistory(log.url().toLocalFile()) || !layouts.save(sampleLayouts(layoutCount)))
        return unexpected<QString>(u"the files could not be written"_s);

    qsizetype found = 0;
    const double recent = medianDuration(21, [&] { found += log.recent(300).size(); });
    const double append = medianDuration(
        501, [&] { log.append(sampleMove(historyLines, QDateTime::currentDateTimeUtc())); });
    const double read =
        medianDuration(5, [&] { found += contents(log.url().toLocalFile()).size() > 0; });
    const double prune = duration([&] { log.prune(30); });
    if (log.recent(historyLines).size() < historyLines / 2)
        return unexpected<QString>(u"pruning lost moves"_s);

    const double load =
        medianDuration(11, [&] { found += layouts.loadKeepingUnreadable().layouts.size(); });
    const double parse = medianDuration(11, [&] {
        found += QJsonDocument::fromJson(contents(layouts.url().toLocalFile())).array().size();
    });
    if (found != 21 * 300 + 5 + 2 * 11 * layoutCount)
        return unexpected<QString>(u"the files did not hold what was written"_s);
    return QList<Measurement>{
        {u"newest 300 of 100,000 moves"_s, recent, u"ms"_s, atMost(5)},
        {u"append a move"_s, append * 1000, u"µs"_s, atMost(100)},
        {u"floor: read the 100,000 moves' bytes"_s, read, u"ms"_s},
        {u"prune 100,000 moves"_s, prune, u"ms"_s, atMost(500)},
        {u"floor: parse the layouts' JSON"_s, parse, u"ms"_s},
        {u"load 500 layouts of 12 panes"_s, load, u"ms"_s},
        {u"load / floor"_s, load / parse, {}, atMost(2)},
    };
}

} // namespace corvane::bench
