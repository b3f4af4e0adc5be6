#pragma once

#include <QtCore/QString>

#include <functional>

/// The permission to see and move other applications' windows.
namespace corvane::Accessibility {

/// What becomes of the row that an earlier build of this program may have left in the system's
/// permission list.
enum class StaleRow {
    leave,
    clear,
};

[[nodiscard]] bool isTrusted();
/// Bounds every call to another application.
void setMessagingTimeout(double seconds);
/// Asks for the permission; true when it is there already.
bool requestTrust(StaleRow staleRow);
/// Shows the user where the permission is granted. False when nothing could show it.
bool openSettings();
/// What the settings pane is called on this system.
[[nodiscard]] QString paneName();

inline std::function<void(const QString &)> onDiagnostic;

} // namespace corvane::Accessibility
