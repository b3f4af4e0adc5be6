#pragma once

#include "WindowLayout.h"

namespace corvane {

/// The layout with today's identifier in each pane whose application is known by another one: an
/// earlier version named some by what their windows say only at first. Where the running windows do
/// not tell, the pane stays as it is.
[[nodiscard]] WindowLayout mended(WindowLayout layout);

} // namespace corvane
