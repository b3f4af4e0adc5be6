#include "Updates.h"

#include "FlightRecorder.h"
#include "Platform.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr std::chrono::seconds usualPause = 24h;
constexpr std::chrono::seconds pauseAfterFailure = 1h;

} // namespace

Updates::Updates(AppModel &model, UpdateSource source)
    : m_model(model), m_delegate(model), m_updater(std::move(source.updater))
{
    m_model.installedCopy = source.installedCopy;
    if (const QString host = QUrl(m_delegate.feedAddress()).host(); !host.isEmpty())
        m_driver.host = host;
}

void Updates::start()
{
    if (!m_model.installedCopy.value().canUpdateItself())
        m_updater.reset();
    if (!m_updater)
        return;
    if (const auto started = m_updater->start(m_driver, m_delegate); !started) {
        FlightRecorder::shared().record(
            u"update-check-failed"_s, u"the updater did not start: %1"_s.arg(started.error().code));
        return m_updater.reset();
    }
    // Nothing is fetched that nobody has asked for.
    m_updater->setDownloadsAutomatically(false);
    m_delegate.seedLastChecked(m_updater->lastCheckDate());
    connectModel();
}

void Updates::connectModel()
{
    const auto check = [this] { m_updater->check(UpdateCheck::asked); };
    m_delegate.onCycleEnd = [this] { planNextCheck(); };
    m_driver.onCheck = check;
    m_model.onCheckForUpdatesNow = check;
    m_model.onInstallUpdate = check;
    m_model.automaticUpdateChecks = m_updater->checksAutomatically();
    m_model.onAutomaticUpdateChecksChanged = [this](bool checks) {
        m_updater->setChecksAutomatically(checks);
    };
    UpdateStatus status = m_model.updateStatus;
    status.canUpdate = true;
    m_model.updateStatus = status;
}

void Updates::readFeedQuietly()
{
    if (!m_updater)
        return;
    planNextCheck();
    if (m_updater->checksAutomatically())
        m_updater->check(UpdateCheck::quiet);
}

// Every check, whoever asked for it, puts off the next. A session may begin before its network is there.
void Updates::planNextCheck()
{
    m_nextCheck.reset(new QObject);
    Clock &clock = Platform::current().clock();
    const auto pause = m_model.updateStatus.value().failed ? pauseAfterFailure : usualPause;
    clock.at(clock.date().addSecs(pause.count()), m_nextCheck.get(), [this] { readFeedQuietly(); });
}

} // namespace corvane
