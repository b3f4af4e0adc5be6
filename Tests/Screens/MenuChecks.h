#pragma once

#include "MenuRows.h"

#include <QtWidgets/QMenu>

/// What must hold of a menu however large its text is. Each failure is one line.
namespace corvane::MenuChecks {

[[nodiscard]] QStringList failures(QMenu &menu, const MenuRows &rows);

} // namespace corvane::MenuChecks
