#pragma once

#include "DisplayArranger.h"
#include "Hand.h"
#include "Pager.h"

namespace corvane::desktop {

/// The hand on an X server, which asks the window manager as a pager does. A window is on the list once
/// it has been shown.
class X11Hand final : public Hand
{
public:
    X11Hand(XConnection &connection, DisplayArranger &displays)
        : m_connection(connection), m_displays(displays)
    {
    }

    QList<SeenWindow> windows() override;
    void activate(quint32 window) override { pager().activate(window); }
    void close(quint32 window) override { pager().close(window); }
    void setMinimized(quint32 window, bool isMinimized) override
    {
        isMinimized ? pager().minimize(window) : pager().activate(window);
    }
    void setMaximized(quint32 window, bool isMaximized) override
    {
        pager().setMaximized(window, Pager::Change(isMaximized));
    }
    void setFullScreen(quint32 window, bool isFullScreen) override
    {
        pager().setFullScreen(window, Pager::Change(isFullScreen));
    }
    void tile(quint32) override { }
    /// Waits until there is a second workspace.
    void moveElsewhere(quint32 window) override;
    void place(quint32 window, const Rect &frame) override { pager().moveResize(window, frame); }

    [[nodiscard]] bool arrange(const QList<Rect> &displays) override
    {
        return m_displays.arrange(displays);
    }
    [[nodiscard]] bool setScale(int, double) override { return false; }
    [[nodiscard]] QList<Rect> displays() override { return m_displays.displays(); }

    [[nodiscard]] Rect frame(quint32 window) override
    {
        return probe().visibleFrame(window).value_or(Rect());
    }
    [[nodiscard]] quint32 activeWindow() override { return probe().activeWindow(); }

private:
    WindowProbe probe() { return WindowProbe(m_connection); }
    Pager pager() { return Pager(m_connection); }
    [[nodiscard]] SeenWindow seen(xcb_window_t window);

    XConnection &m_connection;
    DisplayArranger &m_displays;
};

} // namespace corvane::desktop
