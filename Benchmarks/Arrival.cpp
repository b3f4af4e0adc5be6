#include "Arrival.h"

#include <poll.h>

namespace corvane::bench {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

std::optional<Clock::time_point> arrival(desktop::XConnection &connection,
    Clock::time_point deadline, const std::function<bool()> &wasNoticed,
    const std::function<bool()> &isThere)
{
    pollfd readable{xcb_get_file_descriptor(connection.raw()), POLLIN, 0};
    for (;;) {
        while (wasNoticed()) {
            const auto noticed = Clock::now();
            if (isThere())
                return noticed;
        }
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left <= 0ms)
            return std::nullopt;
        poll(&readable, 1, static_cast<int>(left.count()));
    }
}

} // namespace corvane::bench
