#pragma once

#include <ctime>

namespace corvane {

/// The processor's time that this thread has had, in milliseconds: what other programs take of the
/// machine meanwhile is not in it.
[[nodiscard]] inline double ownTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

} // namespace corvane
