#pragma once

#include "Toplevel.h"
#include "WindowNumbers.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>

namespace corvane::kwin {

/// What the agent says of the desk. Nothing where that makes no sense.
[[nodiscard]] std::optional<wayland::Desk> deskIn(
    const QJsonObject &answer, WindowNumbers &numbers);

/// A rectangle, as the agent writes it.
[[nodiscard]] QJsonArray written(const Rect &rect);

} // namespace corvane::kwin
