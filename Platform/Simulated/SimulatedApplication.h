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
    bool isRival = false; ///< moves windows by shortcuts, too
    QList<RunningApplication> roles{}; ///< the applications that its windows made of it
    std::optional<WindowElement> mainWindow{};

    /// The applications that its windows make of it. A window that the task bar does not list
    /// counts only while there is no listed one.
    [[nodiscard]] QList<RunningApplication> records() const;
};

/// An application that can be launched, and what happens then.
struct SimulatedInstallation {
    /// What a further start does while it runs.
    enum class FurtherStart { process, window, windowIfItHasNone };

    QString bundleIdentifier{};
    QString name{};
    Installation::State state = Installation::State::ready;
    QList<WindowSpec> windows{}; ///< front to back
    /// How long it takes to show them; nothing: it never does.
    std::optional<Clock::Duration> opensAfter{Clock::Duration{0}};
    /// Shown at once, and closed when the windows open.
    std::optional<WindowSpec> splash{};
    std::optional<Clock::Duration> exitsAfter{};
    FurtherStart furtherStart = FurtherStart::process;
    bool opensFurtherWindows = false; ///< when asked for one, whatever a further start does
    bool hasOneWindow = false; ///< and says so
    // What it says of itself to its users
    QString purpose{};
    QStringList keywords{};
    QString iconName{};
};

} // namespace corvane
