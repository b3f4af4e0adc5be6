#pragma once

#include "ActivityEntry.h"

namespace corvane {

/// The entries as a table with a heading, a line each, in the order given. One sentence for none.
[[nodiscard]] QString historyTable(const QList<ActivityEntry> &entries);
/// As one JSON array, in one line.
[[nodiscard]] QString historyJson(const QList<ActivityEntry> &entries);

} // namespace corvane
