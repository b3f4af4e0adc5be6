#include "AppModel.h"

#include "Accessibility.h"
#include "DataFolder.h"
#include "FlightRecorder.h"
#include "Platform.h"

#include <QtCore/QFileInfo>

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
    , m_layoutApplier([this](const QList<ActivityEntry> &entries) { writeDown(entries); })
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
    connect(&FlightRecorder::shared(), &FlightRecorder::written, this, &AppModel::noteWriting);
    FlightRecorder::shared().tellProblems();
    loadSettings();
    loadLayouts();
    m_history.setSaved(m_layouts);
    connectLayouts();
    refreshTrust();
    applyAppearance();
    connect(
        &Platform::current().session(), &Session::lookChanged, this, &AppModel::applyAppearance);
}

void AppModel::followFiles()
{
    m_fileWatch.emplace(
        QStringList{m_store.url().toLocalFile(), m_layoutStore.url().toLocalFile()});
    connect(&*m_fileWatch, &FileWatch::stirred, this, &AppModel::refreshFiles);
    // What was written before anybody watched.
    refreshFiles();
}

void AppModel::refreshFiles()
{
    refreshSettings();
    refreshLayouts();
}

void AppModel::note(
    const QUrl &file, const std::optional<StoreProblem> &problem, StoreProblem::Instead instead)
{
    const QString id = u"unreadable-"_s + file.fileName();
    if (!problem)
        return dismissNotice(id);
    FlightRecorder::shared().record(u"settings-unreadable"_s, detail(*problem));
    post({id, sentence(*problem, instead), problem->kept});
}

void AppModel::writeDown(const QList<ActivityEntry> &entries)
{
    const auto written = m_activityLog.append(entries);
    // One that waits for another process is neither.
    if (!written || *written)
        noteWriting(m_activityLog.url().toLocalFile(), written ? QString() : written.error());
}

void AppModel::noteWriting(const QString &path, const QString &problem)
{
    if (m_unwritten.value(path) == problem)
        return;
    m_unwritten.insert(path, problem);
    const QString id = u"unwritten-"_s + QFileInfo(path).fileName();
    if (problem.isEmpty())
        return dismissNotice(id);
    post({id,
        tr("Corvane could not write to %1: %2 Windows are moved all the same.")
            .arg(abbreviatedPath(path), problem),
        QUrl::fromLocalFile(path)});
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
