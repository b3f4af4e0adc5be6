#pragma once

#include <QtCore/QString>

#include <functional>

namespace corvane {

/// The permission to see and move other applications' windows.
class Accessibility final
{
public:
    /// What becomes of the row that an earlier build of this program may have left in the system's
    /// permission list.
    enum class StaleRow {
        keep,
        clear,
    };

    Accessibility() = delete;

    [[nodiscard]] static bool isTrusted();
    /// Bounds every call to another application.
    static void setMessagingTimeout(double seconds);
    /// Asks for the permission; true when it is there already.
    static bool requestTrust(StaleRow staleRow);
    static void clearStaleRow();
    /// Shows the user where the permission is granted. False when nothing could show it.
    static bool openSettings();
    /// What the settings pane is called on this system.
    [[nodiscard]] static QString paneName();

    static inline std::function<void(const QString &)> onDiagnostic;
};

} // namespace corvane
