#pragma once

namespace corvane {

/// Whether the desktop blends our translucent windows with what is behind them.
[[nodiscard]] bool showsTranslucency();

} // namespace corvane
