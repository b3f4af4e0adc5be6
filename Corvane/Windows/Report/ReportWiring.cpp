#include "ReportWiring.h"

#include "Platform.h"
#include "ReportSession.h"
#include "ReportSheet.h"

namespace corvane {

using namespace Qt::StringLiterals;

ReportSheet *makeReportSheet(ReportSession &session, QWidget *window)
{
    auto *sheet =
        new ReportSheet(session.hasAddress() ? ReportGoal::server : ReportGoal::file, window);
    sheet->onSend = sheet->onTryAgain = [&session] { session.send(); };
    sheet->onClose = [&session] { session.end(); };
    sheet->onShowFile = [&session] { session.showFile(); };
    sheet->onCopyReport = [&session] { session.copy(); };
    const QString page = u"" CORVANE_REPORT_PAGE ""_s;
    if (!page.isEmpty())
        sheet->onOpenPage = [page] { Platform::current().session().openAddress(QUrl(page)); };

    const auto showText = [&session, sheet] { sheet->setText(session.text()); };
    const auto showPhase = [&session, sheet] { sheet->setPhase(session.phase()); };
    const auto showReport = [&session, sheet] { sheet->form().setReport(session.report()); };
    const auto showProblem = [&session, sheet] {
        sheet->form().setProblem(session.draft().problem());
    };
    const auto showCanSend = [&session, sheet] { sheet->setCanSend(session.canSend()); };
    QObject::connect(sheet, &ReportSheet::textChanged, &session, &ReportSession::setText);
    QObject::connect(sheet, &ReportSheet::textChanged, sheet, showCanSend);
    QObject::connect(&session, &ReportSession::textChanged, sheet, showText);
    QObject::connect(&session, &ReportSession::phaseChanged, sheet, showPhase);
    QObject::connect(&session, &ReportSession::phaseChanged, sheet, showCanSend);
    QObject::connect(&session, &ReportSession::reportChanged, sheet, showReport);
    QObject::connect(&session.draft(), &ReportDraft::problemChanged, sheet, showProblem);
    showText();
    showPhase();
    showReport();
    showProblem();
    showCanSend();
    return sheet;
}

} // namespace corvane
