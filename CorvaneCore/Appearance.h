#pragma once

#include "Decoding.h"

#include <QtCore/QString>

#include <array>
#include <optional>

namespace corvane {

/// Whether windows are light or dark.
enum class Appearance {
    matchMac,
    light,
    dark,
};

inline constexpr std::array appearances{Appearance::matchMac, Appearance::light, Appearance::dark};

/// As the settings file spells it.
[[nodiscard]] QString rawValue(Appearance appearance);
[[nodiscard]] QString title(Appearance appearance);

template <>
std::optional<Appearance> decode(const QJsonValue &json, DecodeProblems &problems);

} // namespace corvane
