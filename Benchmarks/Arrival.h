#pragma once

#include "XConnection.h"

#include <chrono>
#include <functional>
#include <optional>

namespace corvane::bench {

/// The moment at which `wasNoticed` told of something after which `isThere` held; nothing if that has
/// not come by the deadline. Between what comes over the connection it sleeps.
[[nodiscard]] std::optional<std::chrono::steady_clock::time_point> arrival(
    desktop::XConnection &connection, std::chrono::steady_clock::time_point deadline,
    const std::function<bool()> &wasNoticed, const std::function<bool()> &isThere);

} // namespace corvane::bench
