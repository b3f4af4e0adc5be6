#pragma once

#include <cstdlib>

namespace corvane {

/// Ends the fuzzer with a finding where that does not hold.
inline void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace corvane
