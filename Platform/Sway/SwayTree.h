#pragma once

#include "Toplevel.h"

#include <QtCore/QJsonObject>

namespace corvane::sway {

/// The desk that sway's tree describes. Windows of one life of sway bear its `generation`.
[[nodiscard]] wayland::Desk deskOf(const QJsonObject &tree, quint64 generation);

} // namespace corvane::sway
