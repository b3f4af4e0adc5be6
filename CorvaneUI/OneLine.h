#pragma once

#include <QtCore/QString>

namespace corvane {

/// Text of another program, which may hold anything, as at most `longest` characters of one line
/// that no terminal takes for a command.
[[nodiscard]] QString oneLine(const QString &text, qsizetype longest = 60);

} // namespace corvane
