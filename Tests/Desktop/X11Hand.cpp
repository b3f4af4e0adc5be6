#include "X11Hand.h"

#include <algorithm>

namespace corvane::desktop {

QList<SeenWindow> X11Hand::windows()
{
    // Of what is new, the stacking is told a moment later.
    QList<xcb_window_t> all = probe().clients();
    const QList<xcb_window_t> stacking = probe().stacking();
    std::ranges::stable_sort(all, {}, [&](xcb_window_t window) {
        return std::ranges::find(stacking, window) - stacking.begin();
    });
    QList<SeenWindow> windows;
    for (const xcb_window_t each : std::as_const(all)) {
        const SeenWindow window = seen(each);
        if (probe().isViewable(each) || window.isMinimized || !window.isHere)
            windows << window;
    }
    return windows;
}

void X11Hand::moveElsewhere(quint32 window)
{
    const auto hasSecond = [this] {
        return m_connection.numbers(m_connection.root(), "_NET_NUMBER_OF_DESKTOPS").value(0) > 1;
    };
    if (!hasSecond())
        pager().setWorkspaceCount(2);
    static_cast<void>(waitUntil(hasSecond));
    pager().moveToWorkspace(window, 1);
}

SeenWindow X11Hand::seen(xcb_window_t window)
{
    const auto numbers = [&](xcb_window_t of, const char *name) {
        return m_connection.numbers(of, name);
    };
    constexpr quint32 everywhere = ~0U;
    const quint32 shown = numbers(m_connection.root(), "_NET_CURRENT_DESKTOP").value(0);
    const quint32 own = numbers(window, "_NET_WM_DESKTOP").value(0, everywhere);
    const QList<quint32> types = numbers(window, "_NET_WM_WINDOW_TYPE");
    const auto isType = [&](const char *name) { return types.contains(m_connection.atom(name)); };
    return {.number = window,
        .pid = static_cast<pid_t>(numbers(window, "_NET_WM_PID").value(0)),
        .title = QString::fromUtf8(m_connection.property(window, "_NET_WM_NAME")),
        .application =
            QString::fromUtf8(m_connection.property(window, "WM_CLASS").split('\0').value(1)),
        .frame = frame(window),
        .isActive = window == activeWindow(),
        .isFullScreen = probe().hasState(window, "_NET_WM_STATE_FULLSCREEN"),
        .isMaximized = probe().hasState(window, "_NET_WM_STATE_MAXIMIZED_VERT")
            && probe().hasState(window, "_NET_WM_STATE_MAXIMIZED_HORZ"),
        .isMinimized = probe().isMinimized(window),
        .isHere = own == shown || own == everywhere,
        .isPanel = isType("_NET_WM_WINDOW_TYPE_DOCK") || isType("_NET_WM_WINDOW_TYPE_DESKTOP")};
}

} // namespace corvane::desktop
