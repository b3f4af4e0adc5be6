#pragma once

#include "ActivityEntry.h"
#include "Competitors.h"
#include "InstallKind.h"
#include "MoveOutcome.h"
#include "PaneResult.h"
#include "Session.h"
#include "ShortcutOwner.h"
#include "UpdateStatus.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QProperty>

namespace corvane {

/// The shortcuts that the desktop refused, each with who holds its keys; empty where that is unknown.
using UnregisteredShortcuts = QHash<ShortcutOwner, QString>;

/// What views show beside settings, layouts and notices, and what they are to show next. Each
/// member can be set by whoever knows better, and has a signal of its name that says that it has
/// another value. Those called pending are one-shot requests: whoever acts on one sets it back to
/// empty.
class ViewState : public QObject
{
    Q_OBJECT

Q_SIGNALS:
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
    void pendingReportChanged();
    void pendingActivationChanged();
    void applyingChanged();
    void applyProgressChanged();
    void lastMoveChanged();
    void lastApplyChanged();
    void automaticUpdateChecksChanged();
    void updateStatusChanged();
    void installedCopyChanged();
    void pendingUpdatePreviewChanged();
    void pendingStealChanged();
    void lookChanged();

public:
    struct ApplyProgress {
        QList<PaneResult> settled; ///< of the panes that wait for no window
        qsizetype waiting = 0; ///< the number of the others

        bool operator==(const ApplyProgress &) const = default;
    };
    struct UpdatePreview {
        QString version;
        std::optional<QByteArray> notes = {}; ///< a web page; nothing while they load

        bool operator==(const UpdatePreview &) const = default;
    };
    struct LastApply {
        QUuid layout;
        QList<PaneResult> results;
        QDateTime date;

        bool operator==(const LastApply &) const = default;
    };

    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<QString>, loginItemNote, &ViewState::loginItemNoteChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, UnregisteredShortcuts, unregistered, &ViewState::unregisteredChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, bool, accessibilityTrusted, &ViewState::accessibilityTrustedChanged)
    /// The newest entries of the move history, the newest last.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, QList<ActivityEntry>, activity, &ViewState::activityChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, QList<Competitor::Running>, competitors, &ViewState::competitorsChanged)
    /// When the settings were saved last.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<QDateTime>, savedFlash, &ViewState::savedFlashChanged)
    /// The placement, or the layout, whose shortcut the user is pressing now; at most one of the
    /// two.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<Placement>, recording, &ViewState::recordingChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, QUuid, recordingLayout, &ViewState::recordingLayoutChanged)
    /// The layout that is being applied; null while none is.
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, QUuid, applying, &ViewState::applyingChanged)
    /// How far that apply has come.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, ApplyProgress, applyProgress, &ViewState::applyProgressChanged)
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, QString, pendingPane, &ViewState::pendingPaneChanged)
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, QUuid, pendingLayout, &ViewState::pendingLayoutChanged)
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, QUuid, pendingRename, &ViewState::pendingRenameChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<int>, pendingPaneIndex, &ViewState::pendingPaneIndexChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, bool, pendingAppPicker, &ViewState::pendingAppPickerChanged)
    /// The page of the tour to show, counted from 1.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<int>, pendingTourPage, &ViewState::pendingTourPageChanged)
    /// What stands already in the report of a problem that the user is to write; empty when they begin
    /// with nothing.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<QString>, pendingReport, &ViewState::pendingReportChanged)
    /// The permission of the window that is shown next to come to the front: X11's startup id,
    /// Wayland's activation token. Empty when whoever asked for the window had none.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, QString, pendingActivation, &ViewState::pendingActivationChanged)
    /// The latest window that a placement moved.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<MoveRecord>, lastMove, &ViewState::lastMoveChanged)
    /// How the latest apply went, until somebody has seen that.
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<LastApply>, lastApply, &ViewState::lastApplyChanged)
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, std::optional<bool>, automaticUpdateChecks,
        &ViewState::automaticUpdateChecksChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, UpdateStatus, updateStatus, &ViewState::updateStatusChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, InstalledCopy, installedCopy, &ViewState::installedCopyChanged)
    /// An update to be shown that does not exist.
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, std::optional<UpdatePreview>, pendingUpdatePreview,
        &ViewState::pendingUpdatePreviewChanged)
    Q_OBJECT_BINDABLE_PROPERTY(
        ViewState, std::optional<ShortcutSteal>, pendingSteal, &ViewState::pendingStealChanged)
    Q_OBJECT_BINDABLE_PROPERTY(ViewState, DesktopLook, look, &ViewState::lookChanged)
};

} // namespace corvane
