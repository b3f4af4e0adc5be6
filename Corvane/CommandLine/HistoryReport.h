#pragma once

#include "ActivityEntry.h"

namespace corvane {

/// The entries as a table with a heading, in the order given. Without entries, one sentence.
[[nodiscard]] QString historyTable(const QList<ActivityEntry> &entries);
/// The entries as one JSON array, in one line.
[[nodiscard]] QString historyJson(const QList<ActivityEntry> &entries);

} // namespace corvane
