#pragma once

#include <algorithm>
#include <chrono>
#include <functional>
#include <thread>

namespace corvane::desktop {

using Milliseconds = std::chrono::milliseconds;

/// How long anything on a virtual desktop may take before it counts as not happening.
inline constexpr Milliseconds patience{10000};

/// Asks for the condition until it holds, less often the longer it takes. False when the deadline
/// passed first.
[[nodiscard]] inline bool waitUntil(
    const std::function<bool()> &condition, Milliseconds deadline = patience)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    while (!condition()) {
        const auto waited = std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
        if (waited >= deadline)
            return false;
        // What is waited for needs the processor, too.
        std::this_thread::sleep_for(std::clamp(waited / 8, Milliseconds{1}, Milliseconds{20}));
    }
    return true;
}

/// Asks until `reading` has returned equal values for `quiet`; returns the last one.
template <typename Reading>
auto settled(Reading &&reading, Milliseconds quiet = Milliseconds{150},
    Milliseconds deadline = Milliseconds{5000})
{
    using Clock = std::chrono::steady_clock;
    auto value = reading();
    auto since = Clock::now();
    static_cast<void>(waitUntil(
        [&] {
            auto next = reading();
            if (next != value) {
                value = std::move(next);
                since = Clock::now();
            }
            return Clock::now() - since >= quiet;
        },
        deadline));
    return value;
}

} // namespace corvane::desktop
