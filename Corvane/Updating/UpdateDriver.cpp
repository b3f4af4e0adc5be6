#include "UpdateDriver.h"

#include "FlightRecorder.h"
#include "Identity.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

using Stage = UpdateSession::Stage;

void record(const QString &kind, const QString &detail)
{
    FlightRecorder::shared().record(kind, detail);
}

QUrl notesAddress(const QString &version)
{
    QUrl address(Identity::website);
    address.setPath(u"/release-notes/Corvane-"_s + version, QUrl::DecodedMode);
    return address;
}

} // namespace

UpdateDriver::UpdateDriver()
    : host(QUrl(Identity::website).host())
    , m_choosesByItself(qEnvironmentVariableIsSet("CORVANE_UPDATE_TEST_INSTALL"))
{
    m_session.onInstall = [this] { chooseInstall(); };
    m_session.onLater = m_session.onCancel = [this] { callOff(); };
    m_session.onRetry = [this] { onCheck(); };
}

void UpdateDriver::begin()
{
    m_cancellation = nullptr;
    m_reply = nullptr;
    m_isChecking = m_hasChosenInstall = m_isReady = m_isCalledOff = false;
    m_session.notes = QList<ReleaseNotes::Section>();
    m_session.notesURL = QUrl();
    m_session.notesFailed = false;
    m_session.received = m_session.expected = 0;
    m_session.extraction = 0;
    m_session.version = QString();
    m_session.released = std::nullopt;
}

void UpdateDriver::chooseInstall()
{
    m_hasChosenInstall = true;
    if (!m_reply)
        return;
    m_session.stage = m_isReady ? Stage{Stage::Installing{}} : Stage{Stage::Downloading{}};
    std::exchange(m_reply, nullptr)(UpdateChoice::install);
}

void UpdateDriver::callOff()
{
    m_isCalledOff = true;
    if (m_reply)
        std::exchange(m_reply, nullptr)(UpdateChoice::later);
    else if (m_cancellation)
        std::exchange(m_cancellation, nullptr)();
}

void UpdateDriver::showUserInitiatedUpdateCheck(Cancellation cancellation)
{
    begin();
    m_isChecking = true;
    m_cancellation = std::move(cancellation);
    m_session.stage = Stage{Stage::Checking{}};
    onShow();
}

void UpdateDriver::showUpdateFound(const UpdateCandidate &candidate, UpdateProgress, Reply reply)
{
    if (m_isCalledOff)
        return reply(UpdateChoice::later);
    m_isChecking = false;
    m_cancellation = nullptr;
    m_reply = std::move(reply);
    m_session.version = candidate.version;
    m_session.released = candidate.released;
    m_session.notesURL = notesAddress(candidate.version);
    m_session.stage = Stage{Stage::Found{}};
    if (m_choosesByItself) {
        record(u"update-test"_s, u"pressing Install and Relaunch for the harness"_s);
        chooseInstall();
    }
}

void UpdateDriver::showUpdateReleaseNotes(const QByteArray &page)
{
    m_session.notes = ReleaseNotes::parse(page);
    m_session.notesFailed = m_session.notes.value().isEmpty();
    if (m_session.notesFailed)
        record(u"update-notes-failed"_s, u"nothing on the page can be read"_s);
}

void UpdateDriver::showUpdateReleaseNotesFailedToDownload(const UpdaterError &error)
{
    m_session.notesFailed = true;
    record(u"update-notes-failed"_s, QString::number(error.code));
}

void UpdateDriver::showUpdateNotFound(Acknowledgement acknowledgement)
{
    if (!m_isCalledOff)
        m_session.stage = Stage{Stage::UpToDate{}};
    acknowledgement();
}

void UpdateDriver::showUpdaterError(const UpdaterError &error, Acknowledgement acknowledgement)
{
    record(std::exchange(m_isChecking, false) ? u"update-check-failed"_s : u"update-failed"_s,
        u"%1 %2: %3"_s.arg(error.domain, QString::number(error.code), error.description));
    m_reply = nullptr;
    m_cancellation = nullptr;
    if (!m_isCalledOff) {
        m_session.stage = Stage{Stage::Failed{sentence(error)}};
        onShow();
    }
    acknowledgement();
}

QString UpdateDriver::sentence(const UpdaterError &error) const
{
    if (error.kind != UpdaterError::Kind::downloadStopped)
        return error.description;
    return QCoreApplication::translate("UpdateDriver",
        "The download from %1 stopped part way. Check the Mac is online and press Try Again.")
        .arg(host);
}

void UpdateDriver::showDownloadInitiated(Cancellation cancellation)
{
    if (m_isCalledOff)
        return cancellation();
    m_cancellation = std::move(cancellation);
    m_session.received = m_session.expected = 0;
    m_session.stage = Stage{Stage::Downloading{}};
}

void UpdateDriver::showDownloadExpects(quint64 bytes)
{
    m_session.expected = bytes;
}

void UpdateDriver::showDownloadReceived(quint64 moreBytes)
{
    m_session.received = m_session.received + moreBytes;
}

void UpdateDriver::showDownloadDidStartExtracting()
{
    m_cancellation = nullptr;
    m_session.extraction = 0;
    m_session.stage = Stage{Stage::Extracting{}};
}

void UpdateDriver::showExtractionProgress(double share)
{
    m_session.extraction = std::clamp(share, 0.0, 1.0);
}

void UpdateDriver::showReadyToInstallAndRelaunch(Reply reply)
{
    if (m_isCalledOff)
        return reply(UpdateChoice::later);
    m_isReady = true;
    m_reply = std::move(reply);
    if (m_hasChosenInstall)
        chooseInstall();
    else
        m_session.stage = Stage{Stage::Found{}};
}

void UpdateDriver::showInstalling(bool hasApplicationTerminated, std::function<void()>)
{
    m_session.stage = Stage{Stage::Installing{}};
    record(u"update-installing"_s,
        hasApplicationTerminated ? u"the program has quit already"_s : u"the program runs still"_s);
}

void UpdateDriver::showInstalled(bool hasRelaunched, Acknowledgement acknowledgement)
{
    record(u"update-installed"_s, hasRelaunched ? u"relaunched"_s : u"not relaunched"_s);
    acknowledgement();
    onClose();
}

void UpdateDriver::showInFocus()
{
    onShow();
}

// How a pass ended stays until the user has read it.
void UpdateDriver::dismiss()
{
    const auto &stage = m_session.stage.value().value;
    if (!std::holds_alternative<Stage::UpToDate>(stage)
        && !std::holds_alternative<Stage::Failed>(stage))
        onClose();
    begin();
}

} // namespace corvane
