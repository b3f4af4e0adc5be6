#pragma once

#include "VirtualDesktop.h"

namespace corvane::demo {

/// Tells the toolkits which fonts to use. Programs that run already do not notice.
void setToolkitLook(const desktop::PrivateSession &session);
/// Gives the running openbox title bars in the drawing board's colours; false when it refused.
[[nodiscard]] bool setOpenboxLook(desktop::PrivateSession &session);

} // namespace corvane::demo
