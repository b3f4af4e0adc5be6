#pragma once

#include <chrono>
#include <sys/types.h>

namespace corvane::bench {

/// How often any thread of the process is put on or off a processor within that time, which begins
/// once it has come to rest.
[[nodiscard]] long long wakeUps(pid_t pid, std::chrono::seconds duration);

/// How many times any thread of the process begins to run within that time, which begins once it has come
/// to rest. What it does within a tenth of a second counts once.
[[nodiscard]] int stirs(pid_t pid, std::chrono::seconds duration);

/// Waits until no thread of the process has run for so long.
void waitForRest(pid_t pid, std::chrono::milliseconds quiet);

} // namespace corvane::bench
