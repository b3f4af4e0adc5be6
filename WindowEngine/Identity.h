#pragma once

#include <QtCore/QLatin1StringView>

namespace corvane::Identity {

inline constexpr QLatin1StringView bundleIdentifier{"app.corvane.Corvane"};
inline constexpr QLatin1StringView website{"https://corvane.app"};

} // namespace corvane::Identity
