#pragma once

#include "RowMenu.h"

/// What must hold of a menu however large its text is. Each failure is one line.
namespace corvane::MenuChecks {

[[nodiscard]] QStringList failures(RowMenu &menu);

} // namespace corvane::MenuChecks
