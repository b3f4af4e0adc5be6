#include "ClientWindow.h"

#include <algorithm>
#include <array>
#include <unistd.h>

namespace corvane::desktop {

namespace {

constexpr std::array kindAtoms{"_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_DOCK", "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_SPLASH", "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_TOOLBAR"};

bool isGiven(Size size)
{
    return size.width != 0 || size.height != 0;
}

quint32 number(double value)
{
    return static_cast<quint32>(static_cast<qint64>(value));
}

// The fields of WM_SIZE_HINTS: flags, position and size, then pairs. i3 believes the size given here.
QList<quint32> sizeHints(const WindowRequest &request)
{
    const WindowRequest::SizeHints &hints = request.hints;
    enum Flag : quint32 {
        userPosition = 1,
        programSize = 8,
        minimum = 16,
        maximum = 32,
        increment = 64,
        aspect = 128,
        base = 256,
        gravity = 512
    };
    quint32 flags = programSize;
    const auto set = [&](bool given, Flag flag) { flags |= given ? quint32(flag) : 0u; };
    set(request.placed, userPosition);
    set(isGiven(hints.minimum), minimum);
    set(isGiven(hints.maximum), maximum);
    set(isGiven(hints.increment), increment);
    set(isGiven(hints.minimumAspect), aspect);
    set(isGiven(hints.base), base);
    set(hints.gravity != 0, gravity);
    QList<quint32> fields{flags, number(request.geometry.x), number(request.geometry.y),
        number(request.geometry.width), number(request.geometry.height)};
    for (const Size size : {hints.minimum, hints.maximum, hints.increment, hints.minimumAspect,
             hints.maximumAspect, hints.base})
        fields << number(size.width) << number(size.height);
    return fields << static_cast<quint32>(hints.gravity);
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
    const std::array<quint32, 3> values{
        colour, request.overrideRedirect ? 1u : 0u, XCB_EVENT_MASK_PROPERTY_CHANGE};
    xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, m_number, connection.root(),
        static_cast<qint16>(rect.x), static_cast<qint16>(rect.y),
        static_cast<quint16>(std::max(1.0, rect.width)),
        static_cast<quint16>(std::max(1.0, rect.height)), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
        values.data());
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

void ClientWindow::setHints(const WindowRequest::SizeHints &hints)
{
    m_request.hints = hints;
    m_connection.setNumbers(m_number, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", sizeHints(m_request));
    m_connection.sync();
}

void ClientWindow::stateChanged(Time now)
{
    if (hasShadow())
        m_shadowDue = now + std::chrono::milliseconds(m_request.shadowDelay);
}

void ClientWindow::adaptShadow()
{
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
    const QByteArray className = m_request.className + '\0';
    m_connection.setBytes(m_number, "WM_CLASS", "STRING", className + className);
    m_connection.setNumbers(
        m_number, "_NET_WM_PID", "CARDINAL", {static_cast<quint32>(::getpid())});
    m_connection.setNumbers(
        m_number, "WM_PROTOCOLS", "ATOM", {m_connection.atom("WM_DELETE_WINDOW")});
    // WM_HINTS: takes input, starts as a normal window.
    m_connection.setNumbers(m_number, "WM_HINTS", "WM_HINTS", {3, 1, 1, 0, 0, 0, 0, 0, 0});
    m_connection.setNumbers(m_number, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", sizeHints(m_request));
    describeKind();
    if (hasShadow())
        publishShadow(m_request.shadow);
}

void ClientWindow::describeKind()
{
    m_connection.setNumbers(m_number, "_NET_WM_WINDOW_TYPE", "ATOM",
        {m_connection.atom(kindAtoms[static_cast<size_t>(m_request.kind)])});
    if (!m_request.decorated)
        m_connection.setNumbers(m_number, "_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
    if (m_request.strut.size() == 12) {
        m_connection.setNumbers(m_number, "_NET_WM_STRUT", "CARDINAL", m_request.strut.mid(0, 4));
        m_connection.setNumbers(m_number, "_NET_WM_STRUT_PARTIAL", "CARDINAL", m_request.strut);
    }
    const xcb_window_t parent = m_request.transientForItself ? m_number : m_request.transientFor;
    if (parent)
        m_connection.setNumbers(m_number, "WM_TRANSIENT_FOR", "WINDOW", {parent});
}

bool ClientWindow::hasShadow() const
{
    const auto &[left, right, top, bottom] = m_request.shadow;
    return left || right || top || bottom;
}

void ClientWindow::publishShadow(const WindowRequest::Edges &edges)
{
    m_connection.setNumbers(m_number, "_GTK_FRAME_EXTENTS", "CARDINAL",
        {static_cast<quint32>(edges.left), static_cast<quint32>(edges.right),
            static_cast<quint32>(edges.top), static_cast<quint32>(edges.bottom)});
}

} // namespace corvane::desktop
