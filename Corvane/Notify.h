#pragma once

#include <QtCore/QString>

namespace corvane {

/// What a notification is about. A newer one takes the place of the last of its kind.
enum class NotificationKind {
    placement,
    capture,
    layout,
    rivals,
    link,
    window, ///< one that does not exist yet
    general,
};

void notify(NotificationKind kind, const QString &title, const QString &body);
/// Each problem, by the id of its notice, is a kind of its own.
void notifyProblem(const QString &noticeId, const QString &text);

} // namespace corvane
