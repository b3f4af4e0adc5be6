#include "UpdateScreens.h"

#include "AppModel.h"
#include "SettingsWindow.h"
#include "UpdateSheet.h"

#include <QtCore/QTimeZone>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

using namespace corvane;
using namespace Qt::StringLiterals;

namespace {

using Stage = UpdateSession::Stage;

QList<ReleaseNotes::Section> sampleNotes()
{
    return ReleaseNotes::parse(
        "<h2>Layouts</h2><li>Edges snap to <b>thirds, halves and quarters</b> as you drag them</li>"
        "<li>A result and a cure for every pane after a layout is applied</li><h2>Fixed</h2>"
        "<li>Terminals no longer leave a gap of one line at the bottom</li>"
        "<li>Two displays of the same model keep their places</li>"
        "<li>A window that opens while the settings are open is placed like any other, on whatever "
        "display the pointer is at that moment</li>");
}

} // namespace

void drawUpdates(const Shoot &shoot)
{
    UpdateSession session;
    session.version = u"1.3.0"_s;
    session.released = QDateTime(QDate(2023, 11, 20), QTime(17, 0), QTimeZone::utc());
    auto *sheet = new UpdateSheet(session, nullptr);
    sheet->setVisible(true);
    shoot(*sheet, u"update-checking"_s);
    session.stage = Stage{Stage::Found{}};
    shoot(*sheet, u"update-loading"_s);
    session.notes = sampleNotes();
    shoot(*sheet, u"update-found"_s);
    session.notesFailed = true;
    shoot(*sheet, u"update-no-notes"_s);
    session.received = 4'700'000;
    session.expected = 12'400'000;
    session.extraction = 0.6;
    for (const auto &[stage, what] :
        {std::pair(Stage{Stage::Downloading{}}, u"update-downloading"_s),
            {Stage{Stage::Extracting{}}, u"update-extracting"_s},
            {Stage{Stage::Installing{}}, u"update-installing"_s},
            {Stage{Stage::UpToDate{}}, u"update-up-to-date"_s},
            {Stage{Stage::Failed{
                 u"The download from corvane.app stopped part way. Check the Mac is online and "
                 "press Try Again."_s}},
                u"update-failed"_s}}) {
        session.stage = stage;
        shoot(*sheet, what);
    }
    sheet->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void drawUpdateStates(SettingsWindow &window, AppModel &model, const Shoot &shoot)
{
    window.show(SettingsPane::about);
    const auto shootEnd = [&](const QString &what) {
        QApplication::processEvents();
        for (const QScrollArea *area : window.findChildren<QScrollArea *>())
            area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
        shoot(window, what);
    };
    for (const auto &[copy, what] :
        {std::pair(InstalledCopy{.kind = InstallKind::package}, u"copy-package"_s),
            {{.kind = InstallKind::package, .command = u"sudo apt upgrade corvane"_s},
                u"copy-command"_s},
            {{.kind = InstallKind::flatpak, .maker = u"Example Packagers"_s}, u"copy-flatpak"_s},
            {{.kind = InstallKind::bundle, .isInPlace = false}, u"copy-elsewhere"_s},
            {{.kind = InstallKind::bundle}, u"copy-without"_s}}) {
        model.installedCopy = copy;
        shootEnd(what);
    }
    model.onCheckForUpdatesNow = model.onInstallUpdate = [] {};
    model.automaticUpdateChecks = false;
    model.updateStatus = UpdateStatus{};
    shootEnd(u"update-unchecked"_s);
    model.automaticUpdateChecks = true;
    UpdateStatus status;
    status.lastChecked = QDateTime(QDate(2026, 11, 20), QTime(9, 12));
    for (const auto &[availability, what] :
        {std::pair(UpdateAvailability{UpdateAvailability::UpToDate{}}, u"update-newest"_s),
            {{UpdateAvailability::Available{u"1.3.0"_s}}, u"update-available"_s}}) {
        status.availability = availability;
        model.updateStatus = status;
        shootEnd(what);
    }
}
