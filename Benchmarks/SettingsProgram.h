#pragma once

#include "Resident.h"
#include "WindowStopwatch.h"

namespace corvane::bench {

/// The program and its settings window.
struct SettingsProgram {
    explicit SettingsProgram(desktop::VirtualDesktop &desktop);

    /// Of a window that is open.
    void showPane(const QString &pane) { corvane.request({QStringLiteral("--pane"), pane}); }
    /// Resident, once it is at rest.
    [[nodiscard]] double megabytes();

    Resident corvane;
    bool isStarted;
    WindowStopwatch window;
};

/// What a fresh window shows.
struct SettingsPictures {
    Picture opened;
    Picture tremorLog; ///< asked for by its name, as is the next one, and after it
    Picture layouts;
    QList<Picture> panes; ///< reached by the rail's keys
};

/// Nothing when the window did not open.
[[nodiscard]] std::optional<SettingsPictures> rehearseSettings(desktop::VirtualDesktop &desktop);

} // namespace corvane::bench
