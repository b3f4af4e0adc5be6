#include "AppModel.h"

#include "Accessibility.h"
#include "FlightRecorder.h"
#include "Platform.h"

#include <QtCore/QFileInfo>

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Most programs are gone by then.
constexpr Clock::Duration timeToQuit = 1s;

} // namespace

AppModel::AppModel(SettingsStore store, LayoutStore layoutStore, ActivityLog activityLog)
    : m_store(std::move(store))
    , m_activityLog(std::move(activityLog))
    , m_layouts(std::move(layoutStore), m_notices,
          [this](QList<WindowLayout> &all) { tell(settleShortcuts(m_settings.shortcuts, all)); })
    , m_layoutApplier([this](const QList<ActivityEntry> &entries) { writeDown(entries); })
{
    m_reader.setMaxThreadCount(1);
    m_reader.setExpiryTimeout(0);
    connectRecording();
    connectNotices();
    loadSettings();
    connectLayouts();
    m_layouts.load();
    refreshTrust();
    applyAppearance();
    connect(
        &Platform::current().session(), &Session::lookChanged, this, &AppModel::applyAppearance);
}

void AppModel::followFiles()
{
    m_fileWatch.emplace(QStringList{m_store.url().toLocalFile(), m_layouts.url().toLocalFile()});
    connect(&*m_fileWatch, &FileWatch::stirred, this, &AppModel::refreshFiles);
    // What was written before anybody watched.
    refreshFiles();
}

void AppModel::refreshFiles()
{
    refreshSettings();
    refreshLayouts();
}

void AppModel::connectNotices()
{
    connect(&m_notices, &Notices::changed, this, [this] {
        Q_EMIT noticesChanged();
        if (onMenuChanged)
            onMenuChanged();
    });
    connect(&FlightRecorder::shared(), &FlightRecorder::written, &m_notices, &Notices::tellWriting);
    FlightRecorder::shared().tellProblems();
}

std::optional<Notice> AppModel::unreadableSettings() const
{
    return m_notices.unreadable(m_store.url());
}

void AppModel::writeDown(const QList<ActivityEntry> &entries)
{
    const auto written = m_activityLog.append(entries);
    // One that waits for another process is neither.
    if (!written || *written)
        m_notices.tellWriting(
            m_activityLog.url().toLocalFile(), written ? QString() : written.error());
}

void AppModel::replayTour()
{
    if (onReplayTour)
        onReplayTour();
}

void AppModel::setAutomaticUpdateChecks(bool isOn)
{
    if (automaticUpdateChecks.value() == isOn)
        return;
    automaticUpdateChecks = isOn;
    if (onAutomaticUpdateChecksChanged)
        onAutomaticUpdateChecksChanged(isOn);
}

void AppModel::applyAppearance()
{
    DesktopLook wanted = Platform::current().session().look();
    const Appearance appearance = forcedAppearance.value_or(m_settings.appearance);
    if (appearance != Appearance::matchMac)
        wanted.isDark = appearance == Appearance::dark;
    look = wanted;
}

void AppModel::refreshTrust()
{
    accessibilityTrusted = Accessibility::isTrusted();
}

void AppModel::refreshCompetitors()
{
    competitors = Competitor::running();
}

void AppModel::quit(const RunningApplication &competitor)
{
    FlightRecorder::shared().record(
        u"competitor"_s, u"asked %1 to quit"_s.arg(competitor.localizedName));
    Platform::current().applications().quit(competitor.pid);
    Platform::current().clock().after(timeToQuit, this, [this] { refreshCompetitors(); });
}

void AppModel::refreshActivity()
{
    if (m_isActivityAsked.exchange(true))
        return;
    m_reader.start([this, folder = QFileInfo(m_activityLog.url().toLocalFile()).path()] {
        m_isActivityAsked = false;
        QMetaObject::invokeMethod(
            this,
            [this, entries = ActivityLog(folder).recent(activityShown)] { activity = entries; },
            Qt::QueuedConnection);
    });
}

} // namespace corvane
