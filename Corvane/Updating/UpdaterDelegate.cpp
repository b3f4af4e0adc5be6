#include "UpdaterDelegate.h"

#include "FlightRecorder.h"
#include "Platform.h"
#include "SettingsUpdateResume.h"

namespace corvane {

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const UpdateCandidate &candidate)
{
    return u"%1 (%2)"_s.arg(candidate.version, candidate.build);
}

} // namespace

void UpdaterDelegate::seedLastChecked(const std::optional<QDateTime> &date)
{
    UpdateStatus status = m_model.updateStatus;
    status.lastChecked = date;
    m_model.updateStatus = status;
}

QString UpdaterDelegate::feedAddress()
{
    return qEnvironmentVariable("CORVANE_UPDATE_TEST_FEED");
}

void UpdaterDelegate::willCheck(UpdateCheck)
{
    m_found.clear();
    UpdateStatus status = m_model.updateStatus;
    status.checking = true;
    m_model.updateStatus = status;
}

void UpdaterDelegate::didFindUpdate(UpdateCheck check, const UpdateCandidate &candidate)
{
    m_found = nameOf(candidate) + u" was found"_s;
    settle({UpdateAvailability::Available{candidate.version}});
    FlightRecorder &recorder = FlightRecorder::shared();
    if (check == UpdateCheck::asked)
        recorder.record(u"update-available"_s, nameOf(candidate));
    else
        recorder.record(u"update-found-quietly"_s, nameOf(candidate) + u": left to the menu row"_s);
}

void UpdaterDelegate::didNotFindUpdate(UpdateCheck)
{
    m_found = u"no newer build on the feed"_s;
    settle({UpdateAvailability::UpToDate{}});
}

void UpdaterDelegate::settle(const UpdateAvailability &availability)
{
    UpdateStatus status = m_model.updateStatus;
    status.availability = availability;
    status.checking = status.failed = false;
    status.lastChecked = Platform::current().clock().date();
    m_model.updateStatus = status;
}

// What goes wrong while the user watches is recorded where it is shown to them.
void UpdaterDelegate::didFinishUpdateCycle(
    UpdateCheck check, const std::optional<UpdaterError> &error)
{
    UpdateStatus status = m_model.updateStatus;
    status.checking = false;
    if (error && m_found.isEmpty())
        status.failed = true;
    m_model.updateStatus = status;
    FlightRecorder &recorder = FlightRecorder::shared();
    if (error && check == UpdateCheck::quiet)
        recorder.record(u"update-check-failed"_s,
            u"%1 %2: %3"_s.arg(error->domain, QString::number(error->code), error->description));
    const QString ending = m_found.isEmpty() ? u"called off"_s : m_found;
    recorder.record(u"update-cycle-ended"_s, error ? u"failed"_s : ending);
    onCycleEnd();
}

void UpdaterDelegate::willRelaunchApplication()
{
    SettingsUpdateResume::remember();
}

} // namespace corvane
