#pragma once

#include "Rect.h"

#include <QtCore/QString>

/// How values read on a terminal.
namespace corvane {

/// Text of another program, which may hold anything, as at most `longest` characters of one line
/// that no terminal takes for a command.
[[nodiscard]] QString oneLine(const QString &text, qsizetype longest = 60);

/// "x,y width×height"
[[nodiscard]] QString rectText(const Rect &rect);

} // namespace corvane
