#pragma once

#include "Platform.h"

#include <qcorotask.h>

namespace corvane {

/// What a coroutine awaits to go on after a while, by the platform's clock, and never once the
/// platform is gone. A named local of the coroutine's: GCC 12 frees a temporary in an await
/// expression twice.
struct Pause {
    Clock::Duration duration;

    bool await_ready() const noexcept { return false; }
    void await_suspend(std::coroutine_handle<> waiting) const
    {
        Platform &platform = Platform::current();
        platform.clock().after(duration, &platform.windows(), [waiting] { waiting.resume(); });
    }
    void await_resume() const noexcept { }
};

} // namespace corvane
