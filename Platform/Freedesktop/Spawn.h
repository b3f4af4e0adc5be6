#pragma once

#include <QtCore/QByteArrayList>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <optional>

namespace corvane::freedesktop {

/// The variables of our environment that are not as the session has them, each with the session's
/// value (nothing: the session has none). Some were meant for us, some the program has set for
/// itself.
[[nodiscard]] QMap<QByteArray, std::optional<QByteArray>> variablesToRestore();

/// Starts a program in a session of its own, with nothing of ours: no descriptors, no blocked or
/// ignored signals, none of the variables that were meant for us. In the home folder unless one is
/// given. Why that failed, without a full stop; empty when the program runs.
[[nodiscard]] QString spawn(const QByteArrayList &command, const QByteArray &workingFolder);

/// A startup id of long ago, so that the desktop takes what the user does now for newer and lets it
/// keep the focus.
[[nodiscard]] QByteArray quietStartupId();

} // namespace corvane::freedesktop
