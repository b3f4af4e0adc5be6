#include "BundleUpdater.h"

#include "HelperProcess.h"
#include "Match.h"
#include "Platform.h"
#include "UpdateState.h"
#include "UserDefaults.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

#include <tuple>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The helper gives up on a feed within half a minute by itself.
constexpr auto patience = 60s;
// The settings, if they were open before, are there again by then.
constexpr Clock::Duration settlingTime = 1s;

QString sentence(SendProblem problem)
{
    switch (problem) {
    case SendProblem::timedOut:
        return BundleUpdater::tr("The update server took too long to answer.");
    case SendProblem::untrusted:
        return BundleUpdater::tr("The update server’s certificate is not trusted.");
    case SendProblem::redirected:
        return BundleUpdater::tr("The update server has moved to another address.");
    case SendProblem::tooMany:
    case SendProblem::serverFailed:
        return BundleUpdater::tr("The update server has a problem of its own. Try again later.");
    case SendProblem::refused:
    case SendProblem::documentTooLarge:
    case SendProblem::answerNotUnderstood:
    case SendProblem::answerTooLong:
        return BundleUpdater::tr("The update server’s answer was not understood.");
    case SendProblem::noAddress:
    case SendProblem::unreachable:
        return BundleUpdater::tr("The update server could not be reached.");
    }
    Q_UNREACHABLE();
}

QString sentence(UpdateProblem problem)
{
    switch (problem) {
    case UpdateProblem::noKeys:
        return BundleUpdater::tr("This copy of Corvane trusts no updates.");
    case UpdateProblem::feedNotSigned:
    case UpdateProblem::releaseNotSigned:
        return BundleUpdater::tr(
            "What the update server offers is not signed by those who make Corvane.");
    case UpdateProblem::wrongProduct:
    case UpdateProblem::wrongChannel:
        return BundleUpdater::tr("The update server offers something else than Corvane.");
    case UpdateProblem::clockBehind:
        return BundleUpdater::tr(
            "This computer’s clock is behind. Set it right and press Try Again.");
    case UpdateProblem::lifetimeTooLong:
    case UpdateProblem::olderThanRemembered:
    case UpdateProblem::expired:
        return BundleUpdater::tr(
            "What the update server says is out of date, so it is not trusted. Try again later.");
    case UpdateProblem::envelopeNotUnderstood:
    case UpdateProblem::feedNotUnderstood:
    case UpdateProblem::releaseNotUnderstood:
        return BundleUpdater::tr("The update server’s answer was not understood.");
    }
    Q_UNREACHABLE();
}

QString sentence(InstallProblem problem)
{
    switch (problem) {
    case InstallProblem::isRoot:
        return BundleUpdater::tr(
            "Corvane runs as the system’s administrator, who cannot update it.");
    case InstallProblem::folderNotOurs:
        return BundleUpdater::tr("The folder that Corvane is installed in is not yours alone.");
    case InstallProblem::busy:
        return BundleUpdater::tr("Corvane is being installed already.");
    case InstallProblem::noSpace:
        return BundleUpdater::tr("There is too little space on the disk.");
    case InstallProblem::cannotWrite:
        return BundleUpdater::tr("The folder that Corvane is installed in cannot be written.");
    case InstallProblem::notAsSigned:
        return BundleUpdater::tr("What was downloaded is not what those who make Corvane signed.");
    case InstallProblem::archiveNotUnderstood:
    case InstallProblem::entryRefused:
    case InstallProblem::tooMuch:
    case InstallProblem::manifestNotUnderstood:
    case InstallProblem::treeDiffers:
        return BundleUpdater::tr("The new version is damaged, so it was not installed.");
    case InstallProblem::doesNotRun:
        return BundleUpdater::tr("The new version does not run on this computer.");
    case InstallProblem::stillRuns:
    case InstallProblem::doesNotAnswer:
        return BundleUpdater::tr("The new version did not start.");
    }
    Q_UNREACHABLE();
}

template <typename Problem>
constexpr auto domainOf = "install"_L1;
template <>
constexpr auto domainOf<SendProblem> = "network"_L1;
template <>
constexpr auto domainOf<UpdateProblem> = "feed"_L1;

UpdaterError errorOf(const UpdateMessage::Failed &failed)
{
    return match(failed.problem, []<typename Problem>(Problem problem) {
        return UpdaterError{.domain = domainOf<Problem>,
            .code = static_cast<int>(problem),
            .description = sentence(problem)};
    });
}

UpdaterError helperError(const QString &description)
{
    return {.domain = u"helper"_s, .description = description};
}

} // namespace

BundleUpdater::BundleUpdater(Setup setup) : m_setup(std::move(setup))
{
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    m_patience.callOnTimeout(this, &BundleUpdater::processEnded);
}

BundleUpdater::~BundleUpdater()
{
    endProcess();
}

expected<void, UpdaterError> BundleUpdater::start(UpdateUserDriver &driver, UpdaterEvents &events)
{
    m_driver = &driver;
    m_events = &events;
    if (!QFileInfo(m_setup.helper).isExecutable())
        return unexpected<UpdaterError>(helperError(m_setup.helper));
    Platform::current().clock().after(settlingTime, this, [this] { tellWentBack(); });
    return {};
}

void BundleUpdater::tellWentBack()
{
    UpdateState state = UpdateState::load();
    if (!state.wentBack)
        return;
    state.wentBack = false;
    // Where that cannot be written, the user is told again.
    std::ignore = state.save();
    m_driver->showUpdaterError(errorOf({InstallProblem::doesNotAnswer}), [] {});
}

void BundleUpdater::check(UpdateCheck check)
{
    if (isShown() && check == UpdateCheck::asked)
        return m_driver->showInFocus();
    if (m_check && check == UpdateCheck::quiet)
        return;
    if (m_check)
        finish();
    begin(check);
}

bool BundleUpdater::checksAutomatically()
{
    return UserDefaults::checksForUpdates();
}

void BundleUpdater::setChecksAutomatically(bool checks)
{
    UserDefaults::setChecksForUpdates(checks);
}

std::optional<QDateTime> BundleUpdater::lastCheckDate()
{
    return UpdateState::load().lastChecked;
}

void BundleUpdater::begin(UpdateCheck check)
{
    m_check = check;
    m_isDownloading = false;
    m_installed.reset();
    m_events->willCheck(check);
    if (isShown())
        m_driver->showUserInitiatedUpdateCheck([this] { callOff(); });
    m_process = std::make_unique<QProcess>();
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &BundleUpdater::read);
    connect(m_process.get(), &QProcess::finished, this, &BundleUpdater::processEnded);
    connect(
        m_process.get(), &QProcess::errorOccurred, this,
        [this, process = m_process.get()](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart && process == m_process.get())
                processEnded();
        },
        // It may be told from within the start.
        Qt::QueuedConnection);
    m_patience.start();
    QStringList arguments{u"--check"_s};
    if (isShown())
        arguments << u"--asked"_s;
    m_process->start(m_setup.helper, arguments);
}

void BundleUpdater::read()
{
    m_text += m_process->readAllStandardOutput();
    for (qsizetype end = 0; (end = m_text.indexOf('\n')) >= 0;) {
        const auto message = UpdateMessage::fromLine(m_text.first(end));
        m_text.remove(0, end + 1);
        if (!message)
            return processEnded();
        hear(*message);
        // What was heard may have ended the pass.
        if (!m_process)
            return;
    }
    if (m_text.size() > UpdateMessage::longest)
        processEnded();
}

void BundleUpdater::hear(const UpdateMessage &message)
{
    m_patience.stop();
    match(
        message.value, [this](const UpdateMessage::Found &found) { hear(found); },
        [this](UpdateMessage::NotFound) {
            m_events->didNotFindUpdate(*m_check);
            if (isShown())
                m_driver->showUpdateNotFound([] {});
            finish();
        },
        [this](const UpdateMessage::Notes &notes) { m_driver->showUpdateReleaseNotes(notes.page); },
        [this](UpdateMessage::NotesFailed failed) {
            m_driver->showUpdateReleaseNotesFailedToDownload(errorOf({failed.problem}));
        },
        [this](UpdateMessage::Downloading begun) {
            m_isDownloading = true;
            m_driver->showDownloadInitiated([this] { callOff(); });
            m_driver->showDownloadExpects(static_cast<quint64>(begun.size));
        },
        [this](UpdateMessage::Received received) {
            m_driver->showDownloadReceived(static_cast<quint64>(received.more));
        },
        [this](UpdateMessage::Extracting) {
            m_isDownloading = false;
            m_driver->showDownloadDidStartExtracting();
        },
        [this](UpdateMessage::Extracted extracted) {
            m_driver->showExtractionProgress(extracted.share);
        },
        [this](UpdateMessage::Ready) {
            m_driver->showReadyToInstallAndRelaunch([this](UpdateChoice choice) {
                choice == UpdateChoice::install ? say(UpdateWord::install) : callOff();
            });
        },
        // Once it has ended, the folder is free for what starts the new version.
        [this](const UpdateMessage::Installed &installed) { m_installed = installed; },
        [this](const UpdateMessage::Failed &failed) { hear(failed); });
}

void BundleUpdater::hear(const UpdateMessage::Found &found)
{
    const UpdateCandidate candidate{.version = found.version,
        .build = QString::number(found.build),
        .released = found.released};
    m_events->didFindUpdate(*m_check, candidate);
    if (!isShown())
        return finish();
    m_driver->showUpdateFound(
        candidate, UpdateProgress::notDownloaded, [this](UpdateChoice choice) {
            choice == UpdateChoice::install ? say(UpdateWord::install) : callOff();
        });
}

void BundleUpdater::hear(const UpdateMessage::Failed &failed)
{
    UpdaterError error = errorOf(failed);
    // What came whole and was wrong has not stopped part way.
    if (m_isDownloading && std::holds_alternative<SendProblem>(failed.problem))
        error.kind = UpdaterError::Kind::downloadStopped;
    fail(error);
}

void BundleUpdater::say(UpdateWord word)
{
    if (m_process)
        m_process->write(QByteArray(updateWords[word].name.data()) + '\n');
}

void BundleUpdater::callOff()
{
    if (m_check)
        finish();
}

void BundleUpdater::processEnded()
{
    if (!m_check)
        return;
    if (m_installed && m_process->state() == QProcess::NotRunning)
        return relaunch();
    fail(helperError(tr("The part of Corvane that updates it did not work.")));
}

void BundleUpdater::relaunch()
{
    endProcess();
    m_events->willRelaunchApplication();
    m_driver->showInstalling(false, [] { QCoreApplication::quit(); });
    QByteArrayList command{m_setup.helper.toLocal8Bit(), "--relaunch",
        QByteArray::number(m_installed->build), "--version", m_installed->version.toUtf8()};
    if (m_installed->previous)
        command << "--previous" << QByteArray::number(*m_installed->previous);
    if (const QString problem = m_setup.spawn(command); !problem.isEmpty())
        return fail(helperError(
            tr("The new version is installed. Quit Corvane and open it again to use it.")));
    finish();
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void BundleUpdater::fail(const UpdaterError &error)
{
    endProcess();
    if (isShown())
        m_driver->showUpdaterError(error, [] {});
    finish(error);
}

void BundleUpdater::finish(const std::optional<UpdaterError> &error)
{
    endProcess();
    const UpdateCheck check = *std::exchange(m_check, std::nullopt);
    m_events->didFinishUpdateCycle(check, error);
    if (check == UpdateCheck::asked)
        m_driver->dismiss();
}

void BundleUpdater::endProcess()
{
    m_patience.stop();
    m_text.clear();
    HelperProcess::end(std::move(m_process));
}

} // namespace corvane
