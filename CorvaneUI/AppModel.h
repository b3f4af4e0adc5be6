#pragma once

#include "ActivityLog.h"
#include "DisplayWatch.h"
#include "FileStamp.h"
#include "FileWatch.h"
#include "LayoutApplier.h"
#include "LayoutLibrary.h"
#include "Notices.h"
#include "SettingsStore.h"
#include "ViewState.h"

#include <QtCore/QThreadPool>

#include <atomic>
#include <functional>

namespace corvane {

/// What every view and command reads and changes: settings, layouts, notices, and the state of the
/// views. It moves no window and registers no hot key: the shell does, and fills in the callbacks.
/// Who only shows something follows the signals. Main thread only; lives as long as the process.
class AppModel final : public ViewState
{
    Q_OBJECT

public:
    using Notice = corvane::Notice;

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
    std::function<void()> onOpenAgain; ///< quits and starts what is installed
    /// Combinations that nobody holds in place of the placements' own.
    std::function<ShortcutMap(const QList<Placement> &)> findFreeCombos;
    /// An apply moved the window from this frame; Snap Back is to know it.
    std::function<void(const AXWindow &window, const Rect &previous)> onLayoutMoved;

    std::optional<Appearance> forcedAppearance; ///< at start-up; then `applyAppearance`

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

    // Notices
    [[nodiscard]] const QList<Notice> &notices() const { return m_notices.all(); }
    /// The notice that the settings' file could not be read whole, while there is one.
    [[nodiscard]] std::optional<Notice> unreadableSettings() const;
    void post(const Notice &notice) { m_notices.post(notice); }
    void dismissNotice(const QString &id) { m_notices.dismiss(id); }

    // The desktop
    /// Sets `look` to what the start, the settings and the desktop want, in this order.
    void applyAppearance();
    void refreshTrust();
    void refreshCompetitors();
    /// Asks the competitor to quit, and refreshes `competitors` a second later.
    void quit(const RunningApplication &competitor);
    /// Reads the newest of the move history, on another thread.
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

    // Layouts, as LayoutLibrary describes
    [[nodiscard]] const QList<WindowLayout> &layouts() const { return m_layouts.all(); }
    void refreshLayouts() { m_layouts.refresh(); }
    [[nodiscard]] auto layout(const QString &nameOrID) const { return m_layouts.layout(nameOrID); }
    [[nodiscard]] auto layout(const QUuid &id) const { return m_layouts.layout(id); }
    WindowLayout newEmptyLayout() { return m_layouts.addEmpty(); }
    /// Adds a layout of the windows on screen.
    [[nodiscard]] expected<WindowLayout, QString> captureCurrentWindows(const QString &name);
    auto addSampleLayout(const WindowLayout &layout) { return m_layouts.addSample(layout); }
    auto duplicateLayout(const QUuid &id) { return m_layouts.duplicate(id); }
    void deleteLayout(const QUuid &id) { m_layouts.remove(id); }
    void moveLayout(const QUuid &id, qsizetype index) { m_layouts.move(id, index); }
    void renameLayout(const QUuid &id, const QString &name) { m_layouts.rename(id, name); }
    void updateLayout(const WindowLayout &layout, const QString &undoTitle)
    {
        m_layouts.update(layout, undoTitle);
    }
    void undo() { m_layouts.undo(); }
    void redo() { m_layouts.redo(); }
    [[nodiscard]] std::optional<QString> undoTitle() const { return m_layouts.undoTitle(); }
    [[nodiscard]] std::optional<QString> redoTitle() const { return m_layouts.redoTitle(); }
    void saveLayout(const QUuid &id) { m_layouts.save(id); }
    void revertLayout(const QUuid &id) { m_layouts.revert(id); }
    [[nodiscard]] auto savedVersion(const QUuid &id) const { return m_layouts.savedVersion(id); }
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

private:
    enum class Origin { program, file };

    void loadSettings();
    void refreshSettings();
    void adopt(Settings settings, Origin origin);
    void tellChangesSince(const Settings &old);
    bool saveSettings();
    void connectNotices();
    void connectRecording();
    void tellRecording();
    void tell(const QList<ShortcutLoss> &losses);
    void store(const std::optional<KeyCombo> &combo, const ShortcutOwner &owner);
    [[nodiscard]] bool exists(const ShortcutOwner &owner) const;
    void connectLayouts();
    void restore(const WindowLayout &layout);

    SettingsStore m_store;
    ActivityLog m_activityLog;
    Notices m_notices;
    Settings m_settings;
    std::optional<FileStamp> m_settingsStamp; ///< of the file that they came from or went to
    LayoutLibrary m_layouts;
    bool m_wasRecording = false;
    LayoutApplier m_layoutApplier;
    std::optional<DisplayWatch> m_displayWatch;
    std::optional<FileWatch> m_fileWatch;
    std::atomic_bool m_isActivityAsked = false; ///< and not yet being read
    QThreadPool m_reader; ///< of one thread. Waits at its end for what it reads.
};

} // namespace corvane
