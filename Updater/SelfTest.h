#pragma once

#include "InstallProblem.h"

#include <chrono>

namespace corvane {

/// Lets a program that is not yet installed test itself ("--self-test"), which must print nothing but its
/// build, and end well in time.
[[nodiscard]] InstallResult<void> runSelfTest(const QString &program, qint64 build,
    std::chrono::milliseconds patience = std::chrono::seconds(10));

} // namespace corvane
