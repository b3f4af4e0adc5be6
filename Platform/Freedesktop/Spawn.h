#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

namespace corvane::freedesktop {

/// What of our environment is not the session's, with what the session has in its place (nothing: the
/// variable is to be absent): what was meant for us, and what the program has set for itself.
[[nodiscard]] QMap<QByteArray, std::optional<QByteArray>> variablesToRestore();

/// Starts a program in a session of its own, with nothing of ours: no descriptors, no blocked or
/// ignored signals, none of the variables that were meant for us. In the home folder unless one is
/// given. Why that failed, without a full stop; empty when the program runs.
[[nodiscard]] QString spawn(const QByteArrayList &command, const QByteArray &workingFolder);

/// A startup id of long ago, so that the desktop takes what the user does now for newer and lets it
/// keep the focus.
[[nodiscard]] QByteArray quietStartupId();

} // namespace corvane::freedesktop
