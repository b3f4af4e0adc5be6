#pragma once

#include "Expected.h"
#include "SimulatedPlatform.h"

#include <memory>

namespace corvane {

/// Makes the desktop that a JSON file describes (see README.md). On bad input, one sentence that
/// says what is wrong and where.
[[nodiscard]] expected<std::unique_ptr<SimulatedPlatform>, QString> loadDesk(const QString &path);

} // namespace corvane
