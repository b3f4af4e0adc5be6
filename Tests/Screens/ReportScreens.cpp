#include "ReportScreens.h"

#include "Disclosure.h"
#include "ReportSheet.h"

#include <QtWidgets/QApplication>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

ProblemReport sampleReport()
{
    const QDateTime first(QDate(2026, 11, 20), QTime(16, 47));
    ProblemReport report{.date = first,
        .text = {},
        .facts = {{u"version"_s, u"Corvane"_s, u"1.2.0"_s},
            {u"system"_s, u"System"_s, u"Debian GNU/Linux 12 (bookworm)"_s},
            {u"display1"_s, u"Display 1"_s, u"Built-in, 1920×1080 at 0,0"_s},
            {u"installID"_s, u"Install id"_s, u"5f0c1d7e-8f4e-4f7b-9d53-0a5d3f2b8c11"_s}},
        .events = {}};
    for (int i = 0; i < 40; ++i)
        report.events << FlightRecorder::Event{
            first.addSecs(60 * i), u"window-watcher"_s, u"original of %1 remembered"_s.arg(i)};
    return report;
}

const QString written = u"I chose Maximize and the browser's window filled only part of the "
                        "screen.\n\nIt has happened since I plugged in the second display."_s;

} // namespace

void drawReports(const std::function<void(QWidget &window, const QString &what)> &shoot)
{
    const auto open = [](ReportGoal goal) {
        auto *sheet = new ReportSheet(goal, nullptr);
        sheet->setVisible(true);
        return sheet;
    };
    ReportSheet *sheet = open(ReportGoal::server);
    shoot(*sheet, u"report-empty"_s);
    sheet->setText(written);
    sheet->setCanSend(true);
    shoot(*sheet, u"report-written"_s);
    sheet->findChild<Disclosure *>()->click();
    shoot(*sheet, u"report-reading"_s);
    sheet->form().setReport(sampleReport());
    sheet->form().setProblem(
        u"Corvane could not keep what you wrote on the disk: The disk is full. "
        "It is kept until Corvane quits."_s);
    shoot(*sheet, u"report-unfolded"_s);
    sheet->findChild<Disclosure *>()->click();
    sheet->form().setProblem({});
    sheet->onOpenPage = [] {};
    using Phase = ReportSheetPhase;
    const QString unreached = u"The report server could not be reached."_s;
    for (const auto &[phase, what] : {std::pair(Phase{Phase::Sending{}}, u"report-sending"_s),
             {Phase{Phase::Sent{u"C-4711-KQ"_s}}, u"report-sent"_s},
             {Phase{Phase::Saved{u"Corvane report 2026-11-21 10.42.33.txt"_s, unreached}},
                 u"report-saved"_s},
             {Phase{Phase::Failed{
                  unreached + u" It could not be saved to a file, either: The disk is full."_s}},
                 u"report-failed"_s}}) {
        sheet->setPhase(phase);
        shoot(*sheet, what);
    }
    sheet->close();
    sheet = open(ReportGoal::file);
    shoot(*sheet, u"report-no-address"_s);
    sheet->setPhase({Phase::Saved{u"Corvane report 2026-11-21 10.42.33.txt"_s,
        u"This copy of Corvane has no address to send reports to."_s, false}});
    shoot(*sheet, u"report-saved-elsewhere"_s);
    sheet->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
