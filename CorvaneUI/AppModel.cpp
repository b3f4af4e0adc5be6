#include "AppModel.h"

#include "Accessibility.h"
#include "DataFolder.h"
#include "FlightRecorder.h"
#include "Platform.h"

namespace corvane {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// Most programs are gone by then.
constexpr Clock::Duration timeToQuit = 1s;

void call(const std::function<void()> &callback)
{
    if (callback)
        callback();
}

void call(const std::function<void(bool)> &callback, bool value)
{
    if (callback)
        callback(value);
}

QString saveFailedID()
{
    return u"save-failed"_s;
}

} // namespace

AppModel::AppModel(SettingsStore store, LayoutStore layoutStore, ActivityLog activityLog)
    : m_store(std::move(store))
    , m_layoutStore(std::move(layoutStore))
    , m_activityLog(std::move(activityLog))
    , m_layoutApplier(m_activityLog)
{
    connect(this, &AppModel::recordingChanged, this, [this] {
        if (recording.value())
            recordingLayout = QUuid();
        noteRecording();
    });
    connect(this, &AppModel::recordingLayoutChanged, this, [this] {
        if (!recordingLayout.value().isNull())
            recording = std::nullopt;
        noteRecording();
    });
    auto [settings, problem] = m_store.loadKeepingUnreadable();
    m_settings = std::move(settings);
    note(problem);
    loadLayouts();
    m_history.setSaved(m_layouts);
    m_layoutApplier.engine().gap = m_settings.gap;
    refreshTrust();
    applyAppearance();
    connect(
        &Platform::current().session(), &Session::lookChanged, this, &AppModel::applyAppearance);
}

void AppModel::note(const std::optional<StoreProblem> &problem)
{
    if (!problem)
        return;
    FlightRecorder::shared().record(u"settings-unreadable"_s, detail(*problem));
    post({u"unreadable-"_s + problem->file, sentence(*problem), problem->kept});
}

void AppModel::setSettings(Settings settings)
{
    if (settings == m_settings)
        return;
    QList<WindowLayout> layouts = m_layouts;
    tell(settleShortcuts(settings.shortcuts, layouts));
    const Settings old = std::exchange(m_settings, std::move(settings));
    m_layoutApplier.engine().gap = m_settings.gap;
    const bool isSaved =
        save(m_store.url(), [this] { return m_store.save(m_settings); }).has_value();
    Q_EMIT settingsChanged();
    const bool layoutsLoseShortcuts = layouts != m_layouts;
    static_cast<void>(setLayouts(std::move(layouts)));
    if (m_settings.shortcuts != old.shortcuts && !layoutsLoseShortcuts)
        call(onShortcutsChanged);
    if (m_settings.launchAtLogin != old.launchAtLogin)
        call(onLaunchAtLoginChanged, m_settings.launchAtLogin);
    if (m_settings.showMenuBarIcon != old.showMenuBarIcon)
        call(onMenuChanged);
    if (m_settings.showInDock != old.showInDock)
        call(onDockVisibilityChanged, m_settings.showInDock);
    if (m_settings.appearance != old.appearance)
        applyAppearance();
    if (isSaved)
        savedFlash = Platform::current().clock().date();
    FlightRecorder::shared().record(
        u"settings"_s, isSaved ? u"changed"_s : u"changed, not saved"_s);
}

expected<void, QString> AppModel::save(
    const QUrl &file, const std::function<expected<void, QString>()> &operation)
{
    const auto saved = operation();
    if (saved) {
        dismissNotice(saveFailedID());
        return {};
    }
    FlightRecorder::shared().record(saveFailedID(), file.fileName() + u": "_s + saved.error());
    const QString text = tr("Corvane could not save to %1: %2 Changes work until Corvane quits.")
                             .arg(abbreviatedPath(file.toLocalFile()), saved.error());
    post({saveFailedID(), text, file});
    return unexpected<QString>(text);
}

void AppModel::completeOnboarding()
{
    Settings settings = m_settings;
    settings.onboardingCompleted = true;
    setSettings(settings);
}

void AppModel::replayTour()
{
    call(onReplayTour);
}

void AppModel::setAutomaticUpdateChecks(bool isOn)
{
    if (automaticUpdateChecks.value() == isOn)
        return;
    automaticUpdateChecks = isOn;
    call(onAutomaticUpdateChecksChanged, isOn);
}

void AppModel::post(const Notice &notice)
{
    m_notices.removeIf([&notice](const Notice &each) { return each.id == notice.id; });
    m_notices.append(notice);
    FlightRecorder::shared().record(u"notice"_s, notice.text);
    Q_EMIT noticesChanged();
    call(onMenuChanged);
}

void AppModel::dismissNotice(const QString &id)
{
    if (!m_notices.removeIf([&id](const Notice &each) { return each.id == id; }))
        return;
    Q_EMIT noticesChanged();
    call(onMenuChanged);
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
    activity = m_activityLog.recent(activityShown);
}

bool AppModel::isRecording() const
{
    return recording.value() || !recordingLayout.value().isNull();
}

void AppModel::endRecording()
{
    recording = std::nullopt;
    recordingLayout = QUuid();
}

void AppModel::noteRecording()
{
    if (std::exchange(m_wasRecording, isRecording()) != isRecording())
        call(onRecordingChanged, isRecording());
}

} // namespace corvane
