#pragma once

#include <chrono>
#include <functional>

namespace corvane::desktop {

using Milliseconds = std::chrono::milliseconds;

/// How long anything on a virtual desktop may take before it counts as not happening.
inline constexpr Milliseconds patience{10000};

/// Asks for the condition every few milliseconds. False when the deadline passed first.
[[nodiscard]] bool waitUntil(
    const std::function<bool()> &condition, Milliseconds deadline = patience);

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
