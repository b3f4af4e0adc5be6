#pragma once

#include "Rect.h"

namespace corvane::demo {

/// What a window does not do, whoever asks.
struct SizeLimits {
    Size increment{1, 1};
    Size minimum; ///< of the visible frame
};

} // namespace corvane::demo
