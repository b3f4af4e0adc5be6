#pragma once

#include "Displays.h"
#include "WindowManagerLink.h"
#include "WindowRegistry.h"

#include <QtCore/QTimer>
#include <xcb/randr.h>

namespace corvane::x11 {

/// RandR monitors and the panels on them. What was read counts until an event says that it has
/// changed.
class X11Displays final : public Displays, private EventSink
{
    Q_OBJECT

public:
    X11Displays(Connection &connection, WindowManagerLink &windowManager, WindowRegistry &registry);
    ~X11Displays() override;

    QList<ScreenInfo> all() override;

private:
    void handle(const xcb_generic_event_t &event) override;
    void followPanels();
    void outdate();
    void refresh();
    [[nodiscard]] QList<ScreenInfo> readScreens();
    [[nodiscard]] QList<ScreenInfo> readMonitors();
    [[nodiscard]] QString nameOf(const xcb_randr_monitor_info_t &monitor);
    [[nodiscard]] QList<Rect> readWorkAreas();

    Connection &m_connection;
    WindowManagerLink &m_windowManager;
    WindowRegistry &m_registry;
    uint8_t m_firstRandrEvent = 0;
    xcb_atom_t m_workAreasAtom = noAtom;
    QList<ScreenInfo> m_screens;
    QList<ScreenInfo> m_announced;
    bool m_outdated = true;
    QTimer m_burst;
};

} // namespace corvane::x11
