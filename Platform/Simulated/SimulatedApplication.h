#pragma once

#include "Applications.h"
#include "SimulatedWindow.h"

#include <QtCore/QList>

namespace corvane {

/// A running process of the simulated desktop.
struct SimulatedApplication {
    pid_t pid = 0;
    QString bundleIdentifier;
    QString name;
    bool hung = false; ///< answers nothing: every call lasts as long as the messaging timeout
    bool hasShown = false; ///< some window
    bool isRegular = false; ///< has shown a window that the task bar lists
    bool isRival = false; ///< moves windows by shortcuts, too
    std::optional<WindowElement> mainWindow{};

    [[nodiscard]] RunningApplication record() const
    {
        return {pid, bundleIdentifier, name, isRegular};
    }
};

/// An application that can be launched, and what happens then.
struct InstalledApplication {
    QString bundleIdentifier{};
    QString name{};
    Installation::State state = Installation::State::ready;
    QList<WindowSpec> windows{}; ///< front to back
    /// How long it takes to show them; nothing: it never does.
    std::optional<Clock::Duration> opensAfter{Clock::Duration{0}};
    /// Shown at once, and closed when the windows open.
    std::optional<WindowSpec> splash{};
    std::optional<Clock::Duration> exitsAfter{};
};

} // namespace corvane
