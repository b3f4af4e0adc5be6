#pragma once

#include <QtCore/QString>

/// Moves what an earlier identity of the program left behind over to the current one.
namespace corvane::LegacyIdentity {

/// The program's identifier before its first release.
inline constexpr QLatin1StringView earlier{"com.orvalle.corvane"};

/// Copies that identity's user defaults, and resets its permissions. Each is done once, and never again.
void adopt(const QString &from);

} // namespace corvane::LegacyIdentity
