#pragma once

#include "Decoding.h"

#include <QtCore/QString>

#include <optional>

namespace corvane {

/// What a shortcut does to a window that the desktop's own layout places.
enum class TiledWindows {
    leaveLayout, ///< it floats from then on
    stay, ///< the shortcut is refused
};

/// As the settings file spells it.
[[nodiscard]] QString rawValue(TiledWindows tiled);

template <>
std::optional<TiledWindows> decode(const QJsonValue &json, DecodeProblems &problems);

} // namespace corvane
