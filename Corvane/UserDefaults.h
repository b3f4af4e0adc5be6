#pragma once

#include <QtCore/QLatin1StringView>
#include <QtCore/QString>

/// What the program remembers beside the settings: booleans in QSettings(), each set once and never
/// cleared.
namespace corvane::UserDefaults {

/// The earlier identity's defaults have been copied.
inline constexpr QLatin1StringView carriedOverLegacyDefaults{"carriedOverLegacyDefaults"};
/// The earlier identity's rows in the system's permission list have been reset.
inline constexpr QLatin1StringView clearedLegacyPermissions{"clearedLegacyPermissions"};
/// The login item has been set again under the current identity.
inline constexpr QLatin1StringView loginItemCarriedOver{"loginItemCarriedOver"};

/// Names the program, so that QSettings() is a file of its own, private to the user. Before the first
/// use.
void prepare();
[[nodiscard]] bool isFlag(const QString &key);
/// Whether it was set before; it is set now. Where the file cannot be written it stays unset, and the
/// diagnostics say so.
[[nodiscard]] bool testAndSet(QLatin1StringView key);

} // namespace corvane::UserDefaults
