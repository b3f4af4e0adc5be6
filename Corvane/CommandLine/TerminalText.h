#pragma once

#include "Rect.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QStringList>

/// How values read on a terminal.
namespace corvane {

/// Columns as wide as their widest cell, a row a line, with nothing behind the last cell.
[[nodiscard]] QString textTable(const QList<QStringList> &rows);

/// With its line break.
[[nodiscard]] QString inOneLine(const QJsonDocument &document);

/// What a window is called is private: of the files that the program keeps by itself, the move history
/// alone has it.
enum class Titles { shown, hidden };

/// The window's title as it stands behind the name of its application, or nothing.
[[nodiscard]] QString titleBehind(const QString &title, Titles titles);

/// "x,y width×height"
[[nodiscard]] QString rectText(const Rect &rect);
/// [x, y, width, height]
[[nodiscard]] QJsonArray jsonRect(const Rect &rect);

} // namespace corvane
