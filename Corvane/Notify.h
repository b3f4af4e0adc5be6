#pragma once

#include <QtCore/QString>

namespace corvane {

/// What a notification is about. A notification takes the place of the last one of its kind.
enum class NotificationKind {
    placement,
    capture,
    layout,
    rivals,
    link,
    window, ///< a window that the program does not have yet
    general,
};

/// `action` says what a click on it leads to, if anything.
void notify(
    NotificationKind kind, const QString &title, const QString &body, const QString &action = {});
/// The name of the kind in what the session tells of a notification.
[[nodiscard]] QString notificationId(NotificationKind kind);
/// Notifies of a problem. Each problem, by its notice's id, is a kind of its own.
void notifyProblem(const QString &noticeId, const QString &text, const QString &action = {});
/// The name of that kind.
[[nodiscard]] QString problemId(const QString &noticeId);

} // namespace corvane
