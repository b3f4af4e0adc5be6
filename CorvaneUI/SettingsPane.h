#pragma once

#include <QtCore/QString>

#include <array>
#include <optional>

namespace corvane {

/// The pages of the settings window, in the order of its rail.
enum class SettingsPane {
    general,
    shortcuts,
    layouts,
    tremorLog,
    about,
};

inline constexpr std::array settingsPanes{SettingsPane::general, SettingsPane::shortcuts,
    SettingsPane::layouts, SettingsPane::tremorLog, SettingsPane::about};

/// The pane's identifier.
[[nodiscard]] QString rawValue(SettingsPane pane);
/// In the rail.
[[nodiscard]] QString title(SettingsPane pane);
[[nodiscard]] std::optional<SettingsPane> settingsPaneNamed(const QString &identifier);

} // namespace corvane
