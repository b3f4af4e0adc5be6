#pragma once

#include <QtCore/QLatin1StringView>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QUuid>

/// What the program remembers beside the settings, in QSettings(): flags, each of which is set once and
/// never cleared, and the sizes that the user gave its windows.
namespace corvane::UserDefaults {

/// The earlier identity's defaults have been copied.
inline constexpr QLatin1StringView carriedOverLegacyDefaults{"carriedOverLegacyDefaults"};
/// The earlier identity's rows in the system's permission list have been reset.
inline constexpr QLatin1StringView clearedLegacyPermissions{"clearedLegacyPermissions"};
/// The login item has been set again under the current identity.
inline constexpr QLatin1StringView loginItemCarriedOver{"loginItemCarriedOver"};

/// Names the program, so that QSettings() is a file of its own, private to the user. To be called before
/// the first use.
void prepare();
[[nodiscard]] bool isFlag(const QString &key);
/// Sets the flag. Whether it was set before. Where the file cannot be written the flag stays unset, and
/// the diagnostics say so.
[[nodiscard]] bool testAndSet(QLatin1StringView key);
/// Tells the reports of this user apart from others'. Random, and made by the first call.
[[nodiscard]] QUuid installID();
/// Whether the program looks for newer versions by itself; it does until the user says otherwise.
[[nodiscard]] bool checksForUpdates();
void setChecksForUpdates(bool checks);
/// Of the window of this name, in points; invalid where none is known.
[[nodiscard]] QSize windowSize(QLatin1StringView name);
void setWindowSize(QLatin1StringView name, const QSize &size);

} // namespace corvane::UserDefaults
