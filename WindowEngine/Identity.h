#pragma once

#include <QtCore/QLatin1StringView>

namespace corvane::Identity {

inline constexpr QLatin1StringView bundleIdentifier{"app.corvane.Corvane"};

} // namespace corvane::Identity
