#include "ClientWindow.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <xcb/xcb_icccm.h>

namespace corvane::desktop {

namespace {

constexpr std::array kinds{
    "NORMAL", "DIALOG", "UTILITY", "DOCK", "DESKTOP", "SPLASH", "NOTIFICATION", "TOOLBAR"};

qint32 number(double value)
{
    return static_cast<qint32>(static_cast<qint64>(value));
}

xcb_size_hints_t sizeHints(const WindowRequest &request)
{
    const auto &[x, y, width, height] = request.geometry;
    const WindowRequest::SizeHints &given = request.hints;
    const auto set = [](auto setter, xcb_size_hints_t &hints, Size size) {
        if (size != Size{})
            setter(&hints, number(size.width), number(size.height));
    };
    xcb_size_hints_t hints{};
    if (request.placed)
        xcb_icccm_size_hints_set_position(&hints, true, number(x), number(y));
    // i3 believes the size given here.
    xcb_icccm_size_hints_set_size(&hints, false, number(width), number(height));
    set(xcb_icccm_size_hints_set_min_size, hints, given.minimum);
    set(xcb_icccm_size_hints_set_max_size, hints, given.maximum);
    set(xcb_icccm_size_hints_set_resize_inc, hints, given.increment);
    set(xcb_icccm_size_hints_set_base_size, hints, given.base);
    if (given.minimumAspect != Size{})
        xcb_icccm_size_hints_set_aspect(&hints, number(given.minimumAspect.width),
            number(given.minimumAspect.height), number(given.maximumAspect.width),
            number(given.maximumAspect.height));
    if (given.gravity != 0)
        xcb_icccm_size_hints_set_win_gravity(&hints, static_cast<xcb_gravity_t>(given.gravity));
    return hints;
}

// Toolkits draw a shadow only where the window manager knows what it is.
bool knowsShadows(XConnection &connection)
{
    return connection.numbers(connection.root(), "_NET_SUPPORTED")
        .contains(connection.atom("_GTK_FRAME_EXTENTS"));
}

WindowRequest withoutShadow(WindowRequest request)
{
    const auto [left, right, top, bottom] = request.shadow;
    request.geometry = {request.geometry.x + left, request.geometry.y + top,
        request.geometry.width - left - right, request.geometry.height - top - bottom};
    request.shadow = {};
    return request;
}

} // namespace

ClientWindow::ClientWindow(XConnection &connection, const WindowRequest &request)
    : m_connection(connection)
    , m_request(knowsShadows(connection) ? request : withoutShadow(request))
    , m_number(request.number ? request.number : xcb_generate_id(connection.raw()))
{
    const Rect &rect = m_request.geometry;
    const quint32 colour = 0x203040 + m_number % 16 * 0x0B0A09;
    const std::array<quint32, 2> values{colour, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, m_number, connection.root(),
        static_cast<qint16>(rect.x), static_cast<qint16>(rect.y),
        static_cast<quint16>(std::max(1.0, rect.width)),
        static_cast<quint16>(std::max(1.0, rect.height)), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    describe();
    xcb_map_window(connection.raw(), m_number);
    connection.sync();
}

void ClientWindow::destroy()
{
    xcb_destroy_window(m_connection.raw(), m_number);
    m_connection.sync();
}

void ClientWindow::resize(Size size)
{
    const std::array<quint32, 2> values{
        static_cast<quint32>(size.width), static_cast<quint32>(size.height)};
    xcb_configure_window(m_connection.raw(), m_number,
        XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, values.data());
    m_connection.sync();
}

void ClientWindow::stateChanged(Time now)
{
    if (hasShadow())
        m_shadowDue = now + std::chrono::milliseconds(m_request.shadowDelay);
}

void ClientWindow::adaptShadowIfDue(Time now)
{
    if (!m_shadowDue || now < *m_shadowDue)
        return;
    m_shadowDue.reset();
    const QList<quint32> states = m_connection.numbers(m_number, "_NET_WM_STATE");
    const bool fills =
        std::ranges::any_of(std::array{"_NET_WM_STATE_MAXIMIZED_VERT",
                                "_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_FULLSCREEN"},
            [&](const char *name) { return states.contains(m_connection.atom(name)); });
    publishShadow(fills ? WindowRequest::Edges{} : m_request.shadow);
    m_connection.sync();
}

void ClientWindow::describe()
{
    const QByteArray title = m_request.title.repeated(m_request.titleRepeats);
    m_connection.setBytes(m_number, "_NET_WM_NAME", "UTF8_STRING", title);
    m_connection.setBytes(m_number, "WM_NAME", "STRING", title.left(1000));
    const QByteArray name = m_request.className + '\0';
    m_connection.setBytes(m_number, "WM_CLASS", "STRING", name + name);
    m_connection.setNumbers(
        m_number, "_NET_WM_PID", "CARDINAL", {static_cast<quint32>(::getpid())});
    m_connection.setNumbers(
        m_number, "WM_PROTOCOLS", "ATOM", {m_connection.atom("WM_DELETE_WINDOW")});
    xcb_icccm_wm_hints_t behaviour{};
    xcb_icccm_wm_hints_set_input(&behaviour, true);
    xcb_icccm_wm_hints_set_normal(&behaviour);
    xcb_icccm_set_wm_hints(m_connection.raw(), m_number, &behaviour);
    xcb_size_hints_t size = sizeHints(m_request);
    xcb_icccm_set_wm_normal_hints(m_connection.raw(), m_number, &size);
    describeKind();
    if (hasShadow())
        publishShadow(m_request.shadow);
}

void ClientWindow::describeKind()
{
    const QByteArray type =
        QByteArray("_NET_WM_WINDOW_TYPE_") + kinds[static_cast<size_t>(m_request.kind)];
    m_connection.setNumbers(m_number, "_NET_WM_WINDOW_TYPE", "ATOM", {m_connection.atom(type)});
    if (!m_request.decorated)
        m_connection.setNumbers(m_number, "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
    if (m_request.strut.size() == 12) {
        m_connection.setNumbers(m_number, "_NET_WM_STRUT", "CARDINAL", m_request.strut.mid(0, 4));
        m_connection.setNumbers(m_number, "_NET_WM_STRUT_PARTIAL", "CARDINAL", m_request.strut);
    }
    const xcb_window_t parent = m_request.transientForItself ? m_number : m_request.transientFor;
    if (parent)
        xcb_icccm_set_wm_transient_for(m_connection.raw(), m_number, parent);
}

void ClientWindow::publishShadow(const WindowRequest::Edges &edges)
{
    m_connection.setNumbers(m_number, "_GTK_FRAME_EXTENTS", "CARDINAL",
        {static_cast<quint32>(edges.left), static_cast<quint32>(edges.right),
            static_cast<quint32>(edges.top), static_cast<quint32>(edges.bottom)});
}

} // namespace corvane::desktop
