#include "ReportBuilder.h"

#include "Build.h"
#include "Platform.h"
#include "Redaction.h"
#include "UserDefaults.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QLocale>
#include <QtCore/QPromise>
#include <QtCore/QThreadPool>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

constexpr int daysReported = 30;

QString frameText(const Rect &frame)
{
    return u"%1×%2 at %3,%4"_s.arg(frame.width).arg(frame.height).arg(frame.x).arg(frame.y);
}

QList<ProblemReport::Fact> desktopFacts(Platform &desktop)
{
    const SystemFacts known = desktop.session().systemFacts();
    QList<ProblemReport::Fact> facts{
        {u"system"_s, u"System"_s, known.system},
        {u"computer"_s, u"Computer"_s, known.computer},
        {u"desktop"_s, u"Desktop"_s, known.desktop},
        {u"session"_s, u"Session"_s, known.session},
        {u"windowManager"_s, u"Window manager"_s, known.windowManager},
    };
    const QList<ScreenInfo> displays = desktop.displays().all();
    for (qsizetype i = 0; i < displays.size(); ++i) {
        const QString number = QString::number(i + 1);
        facts.append({u"display"_s + number, u"Display "_s + number,
            u"%1, %2, of which windows may use %3"_s.arg(displays[i].name,
                frameText(displays[i].frame), frameText(displays[i].visibleFrame))});
    }
    return facts;
}

} // namespace

QList<ProblemReport::Fact> reportFacts(Platform *desktop)
{
    QList<ProblemReport::Fact> facts{
        {u"version"_s, u"Corvane"_s, Build::version()},
        {u"build"_s, u"Build"_s, u"%1 of %2"_s.arg(Build::sha(), Build::stamp().builtAt)},
        {u"qt"_s, u"Qt"_s, QLatin1StringView(qVersion())},
        {u"language"_s, u"Language"_s, QLocale().name().section(u'_', 0, 0)},
        {u"installID"_s, u"Install id"_s, UserDefaults::installID().toString(QUuid::WithoutBraces)},
    };
    if (desktop)
        facts += desktopFacts(*desktop);
    // A computer, or a display, may be called after its owner.
    const Redaction redaction;
    for (ProblemReport::Fact &fact : facts)
        fact.value = redaction.redacted(fact.value);
    facts.removeIf([](const ProblemReport::Fact &fact) { return fact.value.isEmpty(); });
    return facts;
}

QList<ProblemReport::Fact> reportFacts()
{
    return reportFacts(&Platform::current());
}

QFuture<ProblemReport> buildReport(Platform *desktop)
{
    const auto promise = std::make_shared<QPromise<ProblemReport>>();
    promise->start();
    const ProblemReport begun{.date = QDateTime::currentDateTimeUtc(),
        .text = {},
        .facts = reportFacts(desktop),
        .events = {}};
    QThreadPool::globalInstance()->start([promise, report = begun]() mutable {
        // What has happened just now is what is to be reported.
        FlightRecorder::shared().flush();
        addEvents(report, FlightRecorder::shared());
        promise->addResult(std::move(report));
        promise->finish();
    });
    return promise->future();
}

QFuture<ProblemReport> buildReport()
{
    return buildReport(&Platform::current());
}

void addEvents(ProblemReport &report, const FlightRecorder &recorder, qsizetype limit)
{
    const QDateTime earliest = report.date.addDays(-daysReported);
    const Redaction redaction;
    qsizetype size = 0;
    recorder.readBackward([&](const FlightRecorder::Event &event) {
        if (event.date < earliest)
            return true;
        report.events.append(redaction.redacted(event));
        const QJsonDocument json(report.events.last().toJson());
        size += json.toJson(QJsonDocument::Compact).size() + 1;
        report.isShortened = size > limit;
        return !report.isShortened;
    });
    if (report.isShortened)
        report.events.removeLast();
    std::ranges::reverse(report.events);
}

} // namespace corvane
