#include "Waiting.h"

#include <thread>

namespace corvane::desktop {

bool waitUntil(const std::function<bool()> &condition, Milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(Milliseconds(3));
    }
    return true;
}

} // namespace corvane::desktop
