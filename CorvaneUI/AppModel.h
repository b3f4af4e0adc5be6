#pragma once

#include "ActivityLog.h"
#include "Competitors.h"
#include "DisplayWatch.h"
#include "FileStamp.h"
#include "FileWatch.h"
#include "LayoutApplier.h"
#include "LayoutHistory.h"
#include "LayoutStore.h"
#include "Session.h"
#include "SettingsStore.h"
#include "ShortcutOwner.h"
#include "UpdateStatus.h"

#include <QtCore/QProperty>
#include <QtCore/QSet>

#include <functional>

namespace corvane {

/// What every view and command reads and changes: settings, layouts, problems, and what windows are
/// to show next. It moves no window and registers no hot key: the shell, which fills in the callbacks,
/// does. A signal says that the member of its name has another value. Main thread only; lives as long
/// as the process.
class AppModel final : public QObject
{
    Q_OBJECT

public:
    using ShortcutOwner = corvane::ShortcutOwner;

    /// A problem for the user to know. At most one has a given id.
    struct Notice {
        QString id;
        QString text;
        std::optional<QUrl> reveal; ///< a file that the user may want to look at

        bool operator==(const Notice &) const = default;
    };

    struct LastApply {
        QUuid layout;
        QList<PaneResult> results;
        QDateTime date;

        bool operator==(const LastApply &) const = default;
    };

    static constexpr int activityShown = 300;

    /// Reads both stores; what they could not read becomes notices.
    AppModel(SettingsStore store, LayoutStore layoutStore, ActivityLog activityLog);

    std::function<void(const QString &title, const QString &body)> onNotify;
    std::function<void(bool isRecording)> onRecordingChanged;
    std::function<void()> onShortcutsChanged; ///< of placements or layouts
    std::function<void(bool)> onLaunchAtLoginChanged;
    std::function<void()> onMenuChanged;
    std::function<void(bool)> onDockVisibilityChanged;
    std::function<void(bool)> onAutomaticUpdateChecksChanged;
    std::function<void()> onCheckForUpdatesNow;
    std::function<void()> onInstallUpdate;
    std::function<void()> onReplayTour;
    /// An apply moved the window from this frame; Snap Back is to know it.
    std::function<void(const AXWindow &window, const Rect &previous)> onLayoutMoved;

    // Settings
    [[nodiscard]] const Settings &settings() const { return m_settings; }
    /// Saves, and tells who depends on what has changed. Without a change, nothing. What the file holds
    /// by now counts, save for what differs between `settings` and the settings in force.
    void setSettings(Settings settings);
    void completeOnboarding();
    void replayTour();
    /// Gives the placements a preset's shortcuts; the user's own are kept aside.
    void applyPreset(ShortcutPreset preset);
    void restoreCustomShortcuts();
    void setAutomaticUpdateChecks(bool isOn);

    /// From now on, edits of the files of settings and layouts take effect by themselves.
    void followFiles();
    /// Reads those files again where they are not as they were last read or written. What cannot be
    /// read stays as it is in force.
    void refreshFiles();

    // Notices, oldest first
    [[nodiscard]] const QList<Notice> &notices() const { return m_notices; }
    void post(const Notice &notice);
    void dismissNotice(const QString &id);

    // The desktop
    /// Sets `look` to what the start, the settings and the desktop want, in this order.
    void applyAppearance();
    void refreshTrust();
    void refreshCompetitors();
    /// Asks it to quit, and looks a second later what runs.
    void quit(const RunningApplication &competitor);
    void refreshActivity();
    /// Adds to the move history. A failure is a notice until it can be written again.
    void writeDown(const QList<ActivityEntry> &entries);

    // Shortcuts. No combination is ever held by two owners.
    [[nodiscard]] std::optional<ShortcutOwner> owner(const KeyCombo &combo) const;
    [[nodiscard]] QString title(const ShortcutOwner &owner) const;
    /// Clears the owner's shortcut without a combination. One that another owner holds only raises
    /// `pendingSteal`.
    void assign(const std::optional<KeyCombo> &combo, const ShortcutOwner &owner);
    void confirmSteal();
    void cancelSteal();
    [[nodiscard]] bool isRecording() const;
    void endRecording();

    // Layouts. Every change is saved at once and can be undone, except as said.
    [[nodiscard]] const QList<WindowLayout> &layouts() const { return m_layouts; }
    /// Reads the layouts again where their file is not as it was last read or written.
    void refreshLayouts();
    /// By its id, else the first one of that name.
    [[nodiscard]] std::optional<WindowLayout> layout(const QString &nameOrID) const;
    [[nodiscard]] std::optional<WindowLayout> layout(const QUuid &id) const;
    /// One pane for each connected display.
    WindowLayout newEmptyLayout();
    /// Adds a layout of the windows on screen, under a name that no other layout has. The error is
    /// one sentence; then the layout is there, too, but only until the program ends.
    [[nodiscard]] expected<WindowLayout, QString> captureCurrentWindows(const QString &name);
    std::optional<WindowLayout> duplicateLayout(const QUuid &id);
    void deleteLayout(const QUuid &id);
    void renameLayout(const QUuid &id, const QString &name);
    /// Replaces the layout that has the id. `undoTitle` names the action.
    void updateLayout(const WindowLayout &layout, const QString &undoTitle);
    void undo();
    void redo();
    [[nodiscard]] std::optional<QString> undoTitle() const { return m_history.undoTitle(); }
    [[nodiscard]] std::optional<QString> redoTitle() const { return m_history.redoTitle(); }
    /// To this version `revertLayout` goes back. Not to be undone.
    void saveLayout(const QUuid &id);
    void revertLayout(const QUuid &id);
    [[nodiscard]] std::optional<WindowLayout> savedVersion(const QUuid &id) const
    {
        return m_history.savedVersion(id);
    }
    /// Ends an apply that is under way, which then is no `lastApply`.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(WindowLayout layout);
    /// A placement has moved this window, which an apply under way is not to put back.
    void leaveAlone(const AXWindow &window);
    /// From now on, applies by itself the first layout that asks for it whose displays have become
    /// the connected ones.
    void applyOnConnect();

Q_SIGNALS:
    void settingsChanged();
    void noticesChanged();
    void layoutsChanged();
    void loginItemNoteChanged();
    void unregisteredChanged();
    void accessibilityTrustedChanged();
    void activityChanged();
    void competitorsChanged();
    void savedFlashChanged();
    void recordingChanged();
    void recordingLayoutChanged();
    void pendingPaneChanged();
    void pendingLayoutChanged();
    void pendingRenameChanged();
    void pendingPaneIndexChanged();
    void pendingAppPickerChanged();
    void pendingTourPageChanged();
    void pendingActivationChanged();
    void lastApplyChanged();
    void automaticUpdateChecksChanged();
    void updateStatusChanged();
    void pendingStealChanged();
    void lookChanged();

public:
    std::optional<Appearance> forcedAppearance; ///< at start-up; then `applyAppearance`

    // Each signals when it changes. Those called pending are one-shot requests: whoever acts on one
    // sets it back to empty.
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<QString>, loginItemNote, &AppModel::loginItemNoteChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, QSet<ShortcutOwner>, unregistered, &AppModel::unregisteredChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, bool, accessibilityTrusted, &AppModel::accessibilityTrustedChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QList<ActivityEntry>, activity, &AppModel::activityChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, QList<Competitor::Running>, competitors, &AppModel::competitorsChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<QDateTime>, savedFlash, &AppModel::savedFlashChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<Placement>, recording, &AppModel::recordingChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QUuid, recordingLayout, &AppModel::recordingLayoutChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QString, pendingPane, &AppModel::pendingPaneChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QUuid, pendingLayout, &AppModel::pendingLayoutChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, QUuid, pendingRename, &AppModel::pendingRenameChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<int>, pendingPaneIndex, &AppModel::pendingPaneIndexChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, bool, pendingAppPicker, &AppModel::pendingAppPickerChanged)
    /// From 1.
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<int>, pendingTourPage, &AppModel::pendingTourPageChanged)
    /// By which the window that is shown next may come to the front: X11's startup id, Wayland's
    /// activation token. Empty when whoever asked for the window had none.
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, QString, pendingActivation, &AppModel::pendingActivationChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<LastApply>, lastApply, &AppModel::lastApplyChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, std::optional<bool>, automaticUpdateChecks,
        &AppModel::automaticUpdateChecksChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, UpdateStatus, updateStatus, &AppModel::updateStatusChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        AppModel, std::optional<ShortcutSteal>, pendingSteal, &AppModel::pendingStealChanged)
    Q_OBJECT_BINDABLE_PROPERTY(AppModel, DesktopLook, look, &AppModel::lookChanged)

private:
    enum class Origin { program, file };

    void loadSettings();
    void refreshSettings();
    void adopt(Settings settings, Origin origin);
    bool saveSettings();
    void note(const QUrl &file, const std::optional<StoreProblem> &problem,
        StoreProblem::Instead instead);
    /// `problem` is empty when the file can be written.
    void noteWriting(const QString &path, const QString &problem);
    /// Reports a failure once, until a save succeeds. The error is the notice's text.
    expected<void, QString> save(
        const QUrl &file, const std::function<expected<void, QString>()> &operation);
    void noteRecording();
    void tell(const QList<ShortcutLoss> &losses);
    void store(const std::optional<KeyCombo> &combo, const ShortcutOwner &owner);
    [[nodiscard]] bool exists(const ShortcutOwner &owner) const;

    void loadLayouts();
    [[nodiscard]] std::optional<FileStamp> layoutsStamp() const;
    /// As an action that can be undone.
    expected<void, QString> perform(const QString &undoTitle, QList<WindowLayout> layouts);
    expected<void, QString> setLayouts(QList<WindowLayout> layouts);
    [[nodiscard]] QString uniqueLayoutName(const QString &base) const;
    /// Keeps what has changed in it, without a step to undo: nobody did anything.
    WindowLayout mend(const WindowLayout &layout);
    void connectLayouts();
    void restore(const WindowLayout &layout);

    SettingsStore m_store;
    LayoutStore m_layoutStore;
    ActivityLog m_activityLog;
    Settings m_settings;
    std::optional<FileStamp> m_settingsStamp; ///< of what `m_settings` came from or went to
    QHash<QString, QString> m_unwritten; ///< why, by path
    QList<Notice> m_notices;
    QList<WindowLayout> m_layouts;
    LayoutHistory m_history;
    std::optional<FileStamp> m_layoutsStamp; ///< of what `m_layouts` came from or went to
    bool m_wasRecording = false;
    LayoutApplier m_layoutApplier;
    std::optional<DisplayWatch> m_displayWatch;
    std::optional<FileWatch> m_fileWatch;
};

} // namespace corvane
