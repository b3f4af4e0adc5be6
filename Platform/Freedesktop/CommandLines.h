#pragma once

#include "DesktopEntry.h"

#include <QtCore/QByteArrayList>

namespace corvane::freedesktop {

/// The program and its arguments, with the field codes filled in for no file at all. Empty when the
/// line is malformed.
[[nodiscard]] QByteArrayList commandLine(const DesktopEntry &entry);
/// The command inside a terminal window. Empty when there is no terminal.
[[nodiscard]] QByteArrayList terminalCommandLine(const QByteArrayList &command);

/// The programs that say which application the entry is: no shell, interpreter or sandbox.
[[nodiscard]] QByteArrayList ownPrograms(const DesktopEntry &entry);
/// Where the program is, found as the system finds it. Empty when it is nowhere.
[[nodiscard]] QByteArray programPath(const QByteArray &program);

} // namespace corvane::freedesktop
