#pragma once

#include "Json.h"
#include "Toplevel.h"

namespace corvane::sway {

/// The desk that sway's tree describes. Windows of one life of sway bear its `generation`.
[[nodiscard]] wayland::Desk deskOf(const wayland::Json &tree, quint64 generation);

} // namespace corvane::sway
