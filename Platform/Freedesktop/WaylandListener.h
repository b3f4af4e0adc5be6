#pragma once

#include <QtCore/QString>

#include <optional>
#include <sys/types.h>

namespace corvane::freedesktop {

/// The process that listens at the Wayland display of this session: the compositor, or who starts it.
struct WaylandListener {
    pid_t pid = 0;
    QString name; ///< of its program; empty where it is not told
};

/// Nothing where $WAYLAND_DISPLAY names no display that answers.
[[nodiscard]] std::optional<WaylandListener> waylandListener();

} // namespace corvane::freedesktop
