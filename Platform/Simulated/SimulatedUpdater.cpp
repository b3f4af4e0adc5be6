#include "SimulatedUpdater.h"

namespace corvane {

expected<void, UpdaterError> SimulatedUpdater::start(
    UpdateUserDriver &driver, UpdaterEvents &events)
{
    m_driver = &driver;
    m_events = &events;
    if (failure && failure->step == Step::start)
        return unexpected<UpdaterError>(failure->error);
    return {};
}

void SimulatedUpdater::check(UpdateCheck check)
{
    const bool isAsked = check == UpdateCheck::asked;
    if (m_check == UpdateCheck::quiet && isAsked)
        finish();
    if (isUnderWay()) {
        if (isAsked)
            m_driver->showInFocus();
        return;
    }
    m_check = check;
    ++m_pass;
    m_events->willCheck(check);
    if (isAsked)
        m_driver->showUserInitiatedUpdateCheck(cancellation());
    later(&SimulatedUpdater::readFeed);
}

void SimulatedUpdater::later(void (SimulatedUpdater::*step)())
{
    m_clock.after(stepLength, this, [this, step, pass = m_pass] {
        if (isUnderWay() && pass == m_pass)
            (this->*step)();
    });
}

bool SimulatedUpdater::fails(Step step)
{
    if (!failure || failure->step != step)
        return false;
    const UpdaterError error = failure->error;
    if (m_check == UpdateCheck::asked)
        m_driver->showUpdaterError(error, [] {});
    finish(error);
    return true;
}

void SimulatedUpdater::finish(const std::optional<UpdaterError> &error)
{
    const UpdateCheck check = *std::exchange(m_check, std::nullopt);
    m_events->didFinishUpdateCycle(check, error);
}

UpdateUserDriver::Cancellation SimulatedUpdater::cancellation()
{
    return [this, pass = m_pass] {
        if (!isUnderWay() || pass != m_pass)
            return;
        finish();
        m_driver->dismiss();
    };
}

UpdateUserDriver::Reply SimulatedUpdater::reply(void (SimulatedUpdater::*next)())
{
    return [this, next, cancel = cancellation()](UpdateChoice choice) {
        if (choice == UpdateChoice::install)
            later(next);
        else
            cancel();
    };
}

void SimulatedUpdater::readFeed()
{
    lastChecked = m_clock.date();
    if (fails(Step::check))
        return;
    const bool isAsked = m_check == UpdateCheck::asked;
    if (!newer) {
        m_events->didNotFindUpdate(*m_check);
        if (isAsked)
            m_driver->showUpdateNotFound([] {});
        return finish();
    }
    m_events->didFindUpdate(*m_check, *newer);
    if (!isAsked)
        return finish();
    m_driver->showUpdateFound(
        *newer, UpdateProgress::notDownloaded, reply(&SimulatedUpdater::download));
    later(&SimulatedUpdater::readNotes);
}

void SimulatedUpdater::readNotes()
{
    if (failure && failure->step == Step::notes)
        m_driver->showUpdateReleaseNotesFailedToDownload(failure->error);
    else
        m_driver->showUpdateReleaseNotes(notes);
}

void SimulatedUpdater::download()
{
    m_driver->showDownloadInitiated(cancellation());
    if (tellsSize)
        m_driver->showDownloadExpects(size);
    later(&SimulatedUpdater::receiveHalf);
}

void SimulatedUpdater::receiveHalf()
{
    m_driver->showDownloadReceived(size / 2);
    if (!fails(Step::download))
        later(&SimulatedUpdater::receiveRest);
}

void SimulatedUpdater::receiveRest()
{
    m_driver->showDownloadReceived(size - size / 2);
    m_driver->showDownloadDidStartExtracting();
    later(&SimulatedUpdater::extract);
}

void SimulatedUpdater::extract()
{
    m_driver->showExtractionProgress(0.5);
    if (!fails(Step::extraction))
        later(&SimulatedUpdater::offerToInstall);
}

void SimulatedUpdater::offerToInstall()
{
    m_driver->showExtractionProgress(1);
    m_driver->showReadyToInstallAndRelaunch(reply(&SimulatedUpdater::install));
}

void SimulatedUpdater::install()
{
    m_driver->showInstalling(false, [] {});
    if (fails(Step::installation))
        return;
    m_events->willRelaunchApplication();
    m_hasRelaunched = true;
    m_driver->showInstalled(true, [] {});
    finish();
}

} // namespace corvane
