#pragma once

#include "Session.h"

#include <QtCore/QByteArrayList>

namespace corvane::freedesktop {

/// The desktop entry by which the user's session starts Corvane at login.
class AutostartEntry final
{
public:
    /// The folder need not exist yet. `program` is the absolute path of what is to be started.
    AutostartEntry(const QString &folder, const QString &program);

    [[nodiscard]] QString path() const { return m_path; }
    /// An entry that the user switched off in the desktop's settings awaits approval.
    [[nodiscard]] LoginItem state() const;
    /// Writes the entry; one that is switched off stays as it is. The error is one sentence.
    [[nodiscard]] expected<void, QString> add() const;
    [[nodiscard]] expected<void, QString> remove() const;

private:
    QString m_path;
    QString m_program;
};

/// The command that shows where this desktop's user decides what starts at login. Empty where there
/// is none, or it is not installed. `desktops` as in $XDG_CURRENT_DESKTOP.
[[nodiscard]] QByteArrayList autostartSettings(const QByteArrayList &desktops);

} // namespace corvane::freedesktop
