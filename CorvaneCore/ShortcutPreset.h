#pragma once

#include "KeyCombo.h"
#include "Placement.h"

#include <QtCore/QMap>

#include <array>
#include <optional>

namespace corvane {

/// The shortcuts of the placements that have one, in the placements' order.
using ShortcutMap = QMap<Placement, KeyCombo>;

/// A built-in set of shortcuts.
enum class ShortcutPreset {
    sizeUp,
    rectangle,
};

inline constexpr std::array shortcutPresets{ShortcutPreset::sizeUp, ShortcutPreset::rectangle};

/// As the settings file spells it.
[[nodiscard]] QString rawValue(ShortcutPreset preset);
[[nodiscard]] QString title(ShortcutPreset preset);
[[nodiscard]] std::optional<ShortcutPreset> shortcutPresetNamed(QStringView rawValue);

[[nodiscard]] ShortcutMap map(ShortcutPreset preset);
/// The first preset whose map equals `shortcuts`.
[[nodiscard]] std::optional<ShortcutPreset> matching(const ShortcutMap &shortcuts);

} // namespace corvane
