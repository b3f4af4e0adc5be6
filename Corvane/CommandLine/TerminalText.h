#pragma once

#include "Rect.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

/// How values read on a terminal.
namespace corvane {

/// A table with a line for each row. Each column is as wide as its widest cell.
[[nodiscard]] QString textTable(const QList<QStringList> &rows);

/// The document on one line, with its line break.
[[nodiscard]] QString inOneLine(const QJsonDocument &document);

/// Whether a text names windows. What a window is called is private: of the files that the program
/// writes by itself, only the move history says it.
enum class Titles { shown, hidden };

/// The window's title in quotes, to stand behind the name of its application; empty when titles are
/// hidden.
[[nodiscard]] QString titleBehind(const QString &title, Titles titles);

/// "x,y width×height"
[[nodiscard]] QString rectText(const Rect &rect);
/// [x, y, width, height]
[[nodiscard]] QJsonArray jsonRect(const Rect &rect);

} // namespace corvane
