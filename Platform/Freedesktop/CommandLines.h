#pragma once

#include "DesktopEntry.h"

#include <QtCore/QByteArrayList>

namespace corvane::freedesktop {

/// The command that opens the application without any file: the program and its arguments. Empty
/// when the entry's line is malformed.
[[nodiscard]] QByteArrayList commandLine(const DesktopEntry &entry);
/// A word as it stands in a key file's command line: quoted, and escaped as every text there.
[[nodiscard]] QByteArray quotedWord(const QByteArray &word);
/// The command line of a desktop entry that starts a program, given by its absolute path.
[[nodiscard]] QByteArray execValue(const QByteArray &program);
/// The command inside a terminal window. Empty when there is no terminal.
[[nodiscard]] QByteArrayList terminalCommandLine(const QByteArrayList &command);

/// The programs that say which application the entry is: no shell, interpreter or sandbox.
[[nodiscard]] QByteArrayList ownPrograms(const DesktopEntry &entry);
/// Where the program is, found as the system finds it. Empty when it is nowhere.
[[nodiscard]] QByteArray programPath(const QByteArray &program);

} // namespace corvane::freedesktop
