// Opens the sheet of a problem report, and at once unfolds what is sent with it. Prints lines of a name
// and milliseconds, "first" and "later" from the request to the sheet's painting, "firstContents" and
// "laterContents" to that of the list with all its lines.
//
//   corvane-report-sheet OPENINGS

#include "BoardStyle.h"
#include "DataFolder.h"
#include "DesktopChoice.h"
#include "Disclosure.h"
#include "ReportContentsList.h"
#include "ReportSession.h"
#include "ReportSheet.h"
#include "ReportWiring.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>

#include <chrono>
#include <cstdio>

using namespace corvane;
using namespace std::chrono_literals;
using SteadyClock = std::chrono::steady_clock;

namespace {

constexpr auto patience = 10s;
constexpr auto rest = 300ms;

/// Knows when the sheet and its list were painted.
class TimedApplication final : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const bool isTaken = QApplication::notify(receiver, event);
        if (event->type() != QEvent::Paint || !awaited)
            return isTaken;
        const auto *list = awaited->findChild<ReportContentsList *>();
        if (receiver == awaited && !sheetPainted)
            sheetPainted = SteadyClock::now();
        else if (receiver == list->viewport() && list->model()->rowCount() > 0 && !listPainted)
            listPainted = SteadyClock::now();
        return isTaken;
    }

    QPointer<ReportSheet> awaited;
    std::optional<SteadyClock::time_point> sheetPainted;
    std::optional<SteadyClock::time_point> listPainted;
};

void handleEventsFor(SteadyClock::duration duration)
{
    const auto end = SteadyClock::now() + duration;
    while (SteadyClock::now() < end)
        QCoreApplication::processEvents();
}

void print(const char *name, const char *what, SteadyClock::duration duration)
{
    std::printf(
        "%s%s %f\n", name, what, std::chrono::duration<double, std::milli>(duration).count());
}

void timeOpening(TimedApplication &application, ReportSession &session, const char *name)
{
    application.sheetPainted.reset();
    application.listPainted.reset();
    const auto begin = SteadyClock::now();
    QMetaObject::invokeMethod(
        &application,
        [&] {
            session.begin({});
            application.awaited = makeReportSheet(session, nullptr);
            application.awaited->findChild<Disclosure *>()->click();
            application.awaited->open();
        },
        Qt::QueuedConnection);
    while (!application.sheetPainted || !application.listPainted) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (SteadyClock::now() - begin > patience)
            qFatal("the sheet was not painted");
    }
    print(name, "", *application.sheetPainted - begin);
    print(name, "Contents", *application.listPainted - begin);
    application.awaited->reject();
    handleEventsFor(rest);
}

} // namespace

int main(int argc, char **argv)
{
    if (const QString problem = prepareWindows(); !problem.isEmpty())
        qFatal("%s", qUtf8Printable(problem));
    TimedApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto platform = openDesktop([] { QCoreApplication::exit(1); });
    if (!platform)
        qFatal("%s", qUtf8Printable(platform.error()));
    BoardStyle::shared().setLook({});
    ReportSession session(ReportSession::realSteps(), dataFolder());
    handleEventsFor(rest);
    timeOpening(application, session, "first");
    for (int i = 1; i < QApplication::arguments().value(1).toInt(); ++i)
        timeOpening(application, session, "later");
    std::printf("done\n");
}
