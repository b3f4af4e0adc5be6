#pragma once

#include "ActivityLog.h"
#include "DisplayWatch.h"
#include "LayoutEngine.h"
#include "LayoutStore.h"
#include "SettingsStore.h"

#include <optional>

namespace corvane {

/// What every view and command reads and changes: the settings and the layouts. Lives as long as the
/// process.
class AppModel final : public QObject
{
    Q_OBJECT

public:
    struct LastApply {
        QUuid layout;
        QList<PaneResult> results;
        QDateTime date;
    };

    /// Reads both stores; what they could not read is in `problems`.
    AppModel(SettingsStore store, LayoutStore layoutStore, ActivityLog activityLog);

    [[nodiscard]] const Settings &settings() const { return m_settings; }
    [[nodiscard]] const QList<WindowLayout> &layouts() const { return m_layouts; }
    /// Reads the layouts again where their file is not as it was last read or written.
    void refreshLayouts();
    [[nodiscard]] const QList<StoreProblem> &problems() const { return m_problems; }
    [[nodiscard]] const std::optional<LastApply> &lastApply() const { return m_lastApply; }

    /// By its id, else the first one of that name.
    [[nodiscard]] std::optional<WindowLayout> layout(const QString &nameOrID) const;
    /// Adds a layout of the windows on screen, under a name that no other layout has. The error is
    /// one sentence; then the layout is there, too, but only until the program ends.
    [[nodiscard]] expected<WindowLayout, QString> captureCurrentWindows(const QString &name);
    /// Ends an apply that still waits for its apps.
    [[nodiscard]] QCoro::Task<QList<PaneResult>> apply(WindowLayout layout);
    /// From now on, applies by itself the first layout that asks for it whose displays have become
    /// the connected ones.
    void applyOnConnect();

Q_SIGNALS:
    void layoutsChanged();
    void layoutApplied(const corvane::AppModel::LastApply &apply);

private:
    /// Tells one state of a file from another.
    struct FileStamp {
        QDateTime modified;
        qint64 size = 0;

        bool operator==(const FileStamp &) const = default;
    };

    struct Placed {
        AXWindow window;
        Rect frame;
    };

    void note(const std::optional<StoreProblem> &problem);
    void loadLayouts();
    [[nodiscard]] FileStamp layoutsStamp() const;
    QCoro::Task<> restore(WindowLayout layout);
    void putBackWhatWasMoved();
    void writeDown(const WindowLayout &layout, const QList<PaneResult> &results) const;

    SettingsStore m_store;
    LayoutStore m_layoutStore;
    ActivityLog m_activityLog;
    Settings m_settings;
    QList<WindowLayout> m_layouts;
    FileStamp m_layoutsStamp; ///< of what `m_layouts` came from or went to
    QList<StoreProblem> m_problems;
    LayoutEngine m_layoutEngine;
    QList<Placed> m_placed; ///< by the latest apply
    std::optional<LastApply> m_lastApply;
    std::optional<DisplayWatch> m_displayWatch;
};

} // namespace corvane
