#pragma once

#include <QtCore/QtGlobal>

struct wl_display;
struct wl_seat;
struct wl_surface;
class QWindow;

/// Qt's own connection to the compositor, and what it knows the program's windows by. Each is null where
/// Qt shows its windows in another way.
namespace corvane::wayland::QtWayland {

[[nodiscard]] wl_display *display();
[[nodiscard]] wl_seat *seat();
[[nodiscard]] wl_surface *surface(QWindow &window);
/// The window of this number (QWindow::winId).
[[nodiscard]] QWindow *window(quint64 number);

} // namespace corvane::wayland::QtWayland
