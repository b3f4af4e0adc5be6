#include "X11Displays.h"

#include "MonitorNames.h"
#include "OwnPanels.h"
#include "Properties.h"
#include "UnlistedPanels.h"
#include "VisibleFrame.h"

#include <algorithm>
#include <cmath>

namespace corvane::x11 {

using namespace std::chrono_literals;

X11Displays::X11Displays(
    Connection &connection, WindowManagerLink &windowManager, WindowRegistry &registry)
    : m_connection(connection), m_windowManager(windowManager), m_registry(registry)
{
    if (const auto *randr = m_connection.extension(xcb_randr_id)) {
        m_firstRandrEvent = randr->first_event;
        xcb_randr_select_input(m_connection.xcb(), m_connection.root(),
            XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE
                | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    }
    m_burst.setSingleShot(true);
    m_burst.setInterval(100ms);
    connect(&m_burst, &QTimer::timeout, this, [this] {
        if (const auto now = all(); std::exchange(m_announced, now) != now)
            Q_EMIT changed();
    });
    connect(&registry, &WindowRegistry::strutsChanged, this, &X11Displays::outdate);
    connect(&windowManager, &WindowManagerLink::changed, this, [this] {
        followPanels();
        outdate();
    });
    connect(&m_connection, &Connection::answersAgain, this, &X11Displays::outdate);
    followPanels();
    m_connection.addSink(this);
    m_announced = all();
}

X11Displays::~X11Displays()
{
    m_connection.removeSink(this);
}

QList<ScreenInfo> X11Displays::all()
{
    m_connection.drain();
    if (m_outdated)
        refresh();
    return m_screens;
}

void X11Displays::handle(const xcb_generic_event_t &event)
{
    const uint8_t type = event.response_type & 0x7f;
    if (m_firstRandrEvent
        && (type == m_firstRandrEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY
            || type == m_firstRandrEvent + XCB_RANDR_NOTIFY)) {
        outdate();
    } else if (type == XCB_MAP_NOTIFY || type == XCB_UNMAP_NOTIFY) {
        if (reinterpret_cast<const xcb_map_notify_event_t &>(event).event == m_connection.root())
            outdate();
    } else if (type == XCB_CONFIGURE_NOTIFY) {
        if (reinterpret_cast<const xcb_configure_notify_event_t &>(event).window
            == m_connection.root())
            outdate();
    } else if (type == XCB_PROPERTY_NOTIFY) {
        const auto &property = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (property.window == m_connection.root()
            && (property.atom == m_workAreasAtom
                || property.atom == m_connection.atom(Atom::netWorkarea)
                || property.atom == m_connection.atom(Atom::netCurrentDesktop)))
            outdate();
    }
}

/// Panels that no list names show only by being mapped.
void X11Displays::followPanels()
{
    m_connection.followRoot(m_windowManager.tilesWindows() ? XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY
                                                           : XCB_EVENT_MASK_NO_EVENT);
}

void X11Displays::outdate()
{
    m_outdated = true;
    m_burst.start();
}

void X11Displays::refresh()
{
    // Cleared first: a change that arrives while we read outdates what we read.
    m_outdated = false;
    const Answers answers(m_connection);
    const QList<ScreenInfo> screens = readScreens();
    if (answers.complete())
        m_screens = screens;
    else
        m_outdated = true;
}

QList<ScreenInfo> X11Displays::readScreens()
{
    const auto geometry = m_connection.reply<xcb_get_geometry_reply_t>(
        xcb_get_geometry(m_connection.xcb(), m_connection.root()).sequence);
    const Size desk = geometry ? Size{double((*geometry)->width), double((*geometry)->height)}
                               : Size{double(m_connection.screen().width_in_pixels),
                                   double(m_connection.screen().height_in_pixels)};
    QList<ScreenInfo> screens = readMonitors();
    if (screens.isEmpty())
        screens << ScreenInfo{{0, 0, desk.width, desk.height}, {0, 0, desk.width, desk.height}, 0,
            QStringLiteral("X11")};

    const QList<Rect> workAreas = readWorkAreas();
    QList<Strut> struts = m_registry.struts();
    if (m_windowManager.tilesWindows())
        struts << unlistedStruts(m_connection, m_registry);
    const QList<Rect> panels = workAreas.isEmpty()
        ? ownPanels(m_connection, m_windowManager.window(), desk)
        : QList<Rect>{};
    for (ScreenInfo &screen : screens) {
        const auto own = std::ranges::find_if(workAreas, [&](const Rect &area) {
            return area.intersectionArea(screen.frame) == area.width * area.height;
        });
        if (own != workAreas.end()) {
            screen.visibleFrame = *own;
            continue;
        }
        screen.visibleFrame = withoutStruts(screen.frame, struts, desk);
        for (const Rect &panel : panels)
            screen.visibleFrame = withoutPanel(screen.frame, screen.visibleFrame, panel);
    }
    return screens;
}

QList<ScreenInfo> X11Displays::readMonitors()
{
    QList<ScreenInfo> screens;
    if (!m_firstRandrEvent)
        return screens;
    const auto monitors = m_connection.reply<xcb_randr_get_monitors_reply_t>(
        xcb_randr_get_monitors(m_connection.xcb(), m_connection.root(), true).sequence);
    if (!monitors)
        return screens;
    for (auto at = xcb_randr_get_monitors_monitors_iterator(monitors->get()); at.rem;
         xcb_randr_monitor_info_next(&at)) {
        const auto &monitor = *at.data;
        if (monitor.width == 0 || monitor.height == 0)
            continue;
        const Rect frame{
            double(monitor.x), double(monitor.y), double(monitor.width), double(monitor.height)};
        const bool hasOutput = xcb_randr_monitor_info_outputs_length(&monitor) > 0;
        const quint32 number = hasOutput ? *xcb_randr_monitor_info_outputs(&monitor) : monitor.name;
        screens.insert(monitor.primary ? 0 : screens.size(),
            ScreenInfo{frame, frame, number, nameOf(monitor)});
    }
    return screens;
}

QString X11Displays::nameOf(const xcb_randr_monitor_info_t &monitor)
{
    if (xcb_randr_monitor_info_outputs_length(&monitor) > 0) {
        const auto edid =
            m_connection.reply<xcb_randr_get_output_property_reply_t>(xcb_randr_get_output_property(
                m_connection.xcb(), *xcb_randr_monitor_info_outputs(&monitor),
                m_connection.atom(Atom::edid), XCB_GET_PROPERTY_TYPE_ANY, 0, 128, false, false)
                                                                          .sequence);
        if (edid) {
            const QString name =
                monitorNameFromEdid({xcb_randr_get_output_property_data(edid->get()),
                    size_t(xcb_randr_get_output_property_data_length(edid->get()))});
            if (!name.isEmpty())
                return name;
        }
    }
    const auto connector = m_connection.reply<xcb_get_atom_name_reply_t>(
        xcb_get_atom_name(m_connection.xcb(), monitor.name).sequence);
    return connector ? QString::fromUtf8(xcb_get_atom_name_name(connector->get()),
               xcb_get_atom_name_name_length(connector->get()))
                     : QString::number(monitor.name);
}

QList<Rect> X11Displays::readWorkAreas()
{
    // The property outlives the window manager that wrote it.
    if (!m_windowManager.supports(Atom::gtkWorkareas))
        return {};
    const quint32 desktop =
        readList(m_connection, m_connection.root(), Atom::netCurrentDesktop).value(0);
    m_workAreasAtom = m_connection.intern("_GTK_WORKAREAS_D" + QByteArray::number(desktop));
    const auto reply = propertyReply(
        m_connection, requestProperty(m_connection, m_connection.root(), m_workAreasAtom));
    QList<Rect> areas;
    for (auto values = values32(reply); values.size() >= 4; values = values.subspan(4))
        areas << Rect{double(qint32(values[0])), double(qint32(values[1])), double(values[2]),
            double(values[3])};
    return areas;
}

} // namespace corvane::x11
