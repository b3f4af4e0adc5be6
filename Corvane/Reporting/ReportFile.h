#pragma once

#include "Expected.h"
#include "ProblemReport.h"

/// Saves reports for people to read. A file is never replaced, and a failure leaves none. Errors are one
/// sentence each.
namespace corvane {

/// Saves to a new file on the desktop, else in the data folder. Its path.
[[nodiscard]] expected<QString, QString> saveReport(const ProblemReport &report);
[[nodiscard]] expected<void, QString> saveReport(const ProblemReport &report, const QString &path);

} // namespace corvane
