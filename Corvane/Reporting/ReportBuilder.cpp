#include "ReportBuilder.h"

#include "Build.h"
#include "Decoding.h"
#include "Platform.h"
#include "Redaction.h"
#include "UserDefaults.h"

#include <QtCore/QLocale>
#include <QtCore/QPromise>
#include <QtCore/QThreadPool>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int daysReported = 30;
constexpr auto systemKey = "system"_L1;

/// The most that an event takes in the document, in bytes. To write each one only to measure it would
/// take longer than all the rest.
qsizetype mostBytes(const FlightRecorder::Event &event)
{
    constexpr qsizetype frame = 64; // the names of the fields, and the date
    constexpr qsizetype escape = 6;
    constexpr qsizetype longestCharacter = 3;
    qsizetype size = frame;
    for (const QString &text : {event.kind, event.detail}) {
        for (const QChar character : text) {
            const bool isEscaped =
                character < u' ' || character == u'"' || character == u'\\' || character == u'\x7f';
            size += isEscaped ? escape : character < u'\x7f' ? 1 : longestCharacter;
        }
    }
    return size;
}

QString frameText(const Rect &frame)
{
    return u"%1×%2 at %3,%4"_s.arg(frame.width).arg(frame.height).arg(frame.x).arg(frame.y);
}

QList<ProblemReport::Fact> programFacts()
{
    return {
        {u"version"_s, u"Corvane"_s, Build::version()},
        {u"build"_s, u"Build"_s, u"%1 of %2"_s.arg(Build::sha(), Build::stamp().builtAt)},
        {u"qt"_s, u"Qt"_s, QLatin1StringView(qVersion())},
        {u"language"_s, u"Language"_s, QLocale().name().section(u'_', 0, 0)},
        {u"installID"_s, u"Install id"_s, encode(UserDefaults::installID())},
    };
}

QList<ProblemReport::Fact> desktopFacts(Platform &desktop)
{
    const SystemFacts known = desktop.session().systemFacts();
    QList<ProblemReport::Fact> facts{
        {systemKey, u"System"_s, known.system},
        {u"computer"_s, u"Computer"_s, known.computer},
        {u"desktop"_s, u"Desktop"_s, known.desktop},
        {u"session"_s, u"Session"_s, known.session},
        {u"windowManager"_s, u"Window manager"_s, known.windowManager},
    };
    facts.removeIf([](const ProblemReport::Fact &fact) { return fact.value.isEmpty(); });
    const QList<ScreenInfo> displays = desktop.displays().all();
    for (qsizetype i = 0; i < displays.size(); ++i) {
        const QString number = QString::number(i + 1);
        facts.append({u"display"_s + number, u"Display "_s + number,
            u"%1, %2, of which windows may use %3"_s.arg(displays[i].name,
                frameText(displays[i].frame), frameText(displays[i].visibleFrame))});
    }
    return facts;
}

void complete(ProblemReport &report)
{
    // To ask for the user's names may take a while where a network knows them.
    const Redaction redaction;
    for (ProblemReport::Fact &fact : report.facts) {
        // A user may well be called like a system, but no system is called like its user.
        if (fact.key != systemKey)
            fact.value = redaction.redacted(fact.value);
    }
    // What has happened just now is what is to be reported.
    FlightRecorder::shared().flush();
    addEvents(report, FlightRecorder::shared(), redaction);
}

} // namespace

QFuture<ProblemReport> buildReport(Platform *desktop)
{
    ProblemReport begun{
        .date = QDateTime::currentDateTimeUtc(), .text = {}, .facts = programFacts(), .events = {}};
    if (desktop)
        begun.facts += desktopFacts(*desktop);
    const auto promise = std::make_shared<QPromise<ProblemReport>>();
    promise->start();
    QThreadPool::globalInstance()->start([promise, report = std::move(begun)]() mutable {
        complete(report);
        promise->addResult(std::move(report));
        promise->finish();
    });
    return promise->future();
}

QFuture<ProblemReport> buildReport()
{
    return buildReport(&Platform::current());
}

void addEvents(ProblemReport &report, const FlightRecorder &recorder, const Redaction &redaction,
    qsizetype limit)
{
    const QDateTime earliest = report.date.addDays(-daysReported);
    qsizetype size = 0;
    recorder.readBackward([&](const FlightRecorder::Event &event) {
        if (event.date < earliest)
            return true;
        report.events.append(redaction.redacted(event));
        size += mostBytes(report.events.last());
        report.isShortened = size > limit;
        return !report.isShortened;
    });
    if (report.isShortened)
        report.events.removeLast();
    std::ranges::reverse(report.events);
}

} // namespace corvane
