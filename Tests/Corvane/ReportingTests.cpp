#include "../CorvaneCore/StoreFolder.h"
#include "DataFolder.h"
#include "Redaction.h"
#include "ReportBuilder.h"
#include "ReportFile.h"
#include "SimulatedPlatform.h"

#include <QtCore/QJsonDocument>

#include <gmock/gmock.h>

namespace corvane {

using testing::HasSubstr;

namespace {

class ReportFileTests : public testing::Test
{
protected:
    ReportFileTests()
    {
        const auto places = u"XDG_DESKTOP_DIR=\"%1\"\n"_s.arg(desktop.path(u"Desk"_s));
        QFile file(qEnvironmentVariable("XDG_CONFIG_HOME") + u"/user-dirs.dirs"_s);
        EXPECT_TRUE(file.open(QFile::WriteOnly) && file.write(places.toUtf8()) > 0);
        report.date = noon;
        report.text = u"What happened"_s;
    }

    StoreFolder desktop;
    ProblemReport report;
};

} // namespace

TEST_F(ReportFileTests, reportsOfOneSecondStandOnTheDesktopSideBySide)
{
    QDir(desktop.path()).mkdir(u"Desk"_s);
    const QString name =
        u"Desk/Corvane report %1"_s.arg(noon.toLocalTime().toString(u"yyyy-MM-dd hh.mm.ss"_s));

    EXPECT_EQ(saveReport(report), desktop.path(name + u".txt"_s));
    report.text = u"Once more"_s;
    EXPECT_EQ(saveReport(report), desktop.path(name + u" 2.txt"_s));

    EXPECT_THAT(desktop.read(name + u".txt"_s)->toStdString(), HasSubstr("\nWhat happened\n"));
    EXPECT_EQ(desktop.mode(name + u".txt"_s), 0600u);
}

TEST_F(ReportFileTests, aReportThatFindsNoDesktopIsWithCorvanesOwnFiles)
{
    const auto saved = saveReport(report);

    ASSERT_TRUE(saved) << saved.error().toStdString();
    EXPECT_TRUE(saved->startsWith(dataFolder()) && QFile::remove(*saved));
}

TEST_F(ReportFileTests, aFileThatIsThereStaysAndAFullDiskLeavesNone)
{
    desktop.write(u"mine"_s, "precious");
    EXPECT_EQ(saveReport(report, desktop.path(u"mine"_s)).error(),
        u"“%1” exists already."_s.arg(desktop.path(u"mine"_s)));
    EXPECT_EQ(desktop.read(u"mine"_s), "precious");

    report.text = QString(100'000, u'x');
    const pid_t process = startProcess([&] {
        limitFileSize(1000);
        ::_exit(
            saveReport(report, desktop.path(u"new"_s)).error().endsWith(u"too large."_s) ? 0 : 1);
    });

    EXPECT_TRUE(waitFor(process));
    EXPECT_EQ(desktop.names(), QStringList{u"mine"_s});
}

TEST(ReportBuilderTests, theNewestEventsOfThirtyDaysAreKeptWhereNotAllFit)
{
    const StoreFolder folder;
    QByteArray lines;
    for (const auto &[daysAgo, detail] :
        {std::pair(31, u"old"_s), {30, u"kept"_s}, {2, u"cut “Tax”"_s}, {1, u"newest"_s}}) {
        const FlightRecorder::Event event{noon.addDays(-daysAgo), u"move"_s, detail};
        lines += QJsonDocument(event.toJson()).toJson(QJsonDocument::Compact) + '\n';
    }
    folder.write(u"diagnostics.jsonl"_s, lines + "damaged");
    const FlightRecorder recorder(folder.path());
    const auto details = [&](qsizetype limit, bool isShortened) {
        ProblemReport report{.date = noon, .text = {}, .facts = {}, .events = {}};
        addEvents(report, recorder, Redaction(), limit);
        EXPECT_EQ(report.isShortened, isShortened);
        QStringList all;
        for (const FlightRecorder::Event &event : std::as_const(report.events))
            all << event.detail;
        return all.join(u", "_s);
    };

    EXPECT_EQ(details(ProblemReport::eventsLimit, false), u"kept, cut “<title>”, newest");
    EXPECT_EQ(details(200, true), u"cut “<title>”, newest");
    EXPECT_EQ(details(1, true), u"");
}

TEST(ReportBuilderTests, theFactsAreThoseOfTheDesktopAndTheirUserStaysUnnamed)
{
    SimulatedPlatform desk;
    desk.session().facts = {.system = u"Debian"_s, .session = u"X11"_s};
    desk.session().facts.computer = u"Laptop of "_s + QSysInfo::machineHostName();

    const ProblemReport report = buildReport().result();

    QStringList lines;
    for (const ProblemReport::Fact &fact : report.facts)
        lines << fact.title + u": "_s + fact.value;
    EXPECT_TRUE(lines.contains(u"System: Debian"_s));
    EXPECT_TRUE(lines.contains(u"Computer: Laptop of <host>"_s)) << lines.join(u'\n').toStdString();
    EXPECT_TRUE(lines.contains(u"Qt: "_s + QLatin1StringView(qVersion())));
    EXPECT_TRUE(lines.filter(u"Window manager"_s).isEmpty()) << "unknown";
    EXPECT_EQ(buildReport().result().facts, report.facts) << "with the same install id";
    EXPECT_EQ(buildReport(nullptr).result().facts, report.facts.first(5));
}

} // namespace corvane
