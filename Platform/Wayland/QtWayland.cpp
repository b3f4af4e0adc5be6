#include "QtWayland.h"

#include <qpa/qplatformnativeinterface.h>
#include <QtGui/QGuiApplication>
#include <QtGui/QWindow>

#include <algorithm>

namespace corvane::wayland::QtWayland {

namespace {

QPlatformNativeInterface *native()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"))
        ? QGuiApplication::platformNativeInterface()
        : nullptr;
}

void *resource(const char *name)
{
    QPlatformNativeInterface *platform = native();
    return platform ? platform->nativeResourceForIntegration(name) : nullptr;
}

} // namespace

wl_display *display()
{
    return static_cast<wl_display *>(resource("wl_display"));
}

wl_seat *seat()
{
    return static_cast<wl_seat *>(resource("wl_seat"));
}

wl_surface *surface(QWindow &window)
{
    QPlatformNativeInterface *platform = native();
    return platform
        ? static_cast<wl_surface *>(platform->nativeResourceForWindow("surface", &window))
        : nullptr;
}

QWindow *window(quint64 number)
{
    const QWindowList windows = QGuiApplication::allWindows();
    const auto found = std::ranges::find_if(
        windows, [number](QWindow *each) { return each->handle() && each->winId() == number; });
    return found == windows.end() ? nullptr : *found;
}

} // namespace corvane::wayland::QtWayland
