#include "X11OwnWindows.h"

#include "ActiveWindow.h"
#include "Properties.h"
#include "QtX11.h"

#include <algorithm>
#include <tuple>

namespace corvane::x11 {

namespace {

// KWin's switcher heeds only its own state.
constexpr std::array unlistedStates{
    Atom::stateSkipTaskbar, Atom::stateSkipPager, Atom::stateSkipSwitcher};

} // namespace

X11OwnWindows::X11OwnWindows(Connection &connection) : m_connection(connection)
{
    connect(&connection, &Connection::answersAgain, this, [this] {
        for (const auto &[window, isListed] : std::exchange(m_missed, {}).asKeyValueRange())
            setListed(window, isListed);
    });
}

Tray X11OwnWindows::tray()
{
    if (!m_embedding) {
        m_embedding.emplace();
        connect(&*m_embedding, &EmbeddingTray::changed, this, &OwnWindows::trayChanged);
    }
    Tray tray = FreedesktopOwnWindows::tray();
    tray.takesWindows = m_embedding->isThere();
    return tray;
}

// As a pager asks, which every window manager heeds, whenever the user acted last.
void X11OwnWindows::bringForward(quint64 number, const QString &token)
{
    const auto window = static_cast<xcb_window_t>(number);
    const auto workspace =
        readList(m_connection, m_connection.root(), Atom::netCurrentDesktop).value(0);
    m_connection.sendToRoot(window, Atom::netWmDesktop, {workspace, fromPager, 0, 0, 0});
    requestActivation(m_connection, window);
    if (!token.isEmpty())
        endStartup(window, token);
    // Before whatever Qt asks for the window next.
    std::ignore = m_connection.checkedError({});
}

// So that who started the program again no longer shows that it is busy (Startup Notification Protocol
// 0.1): the text in pieces, the first of which has a type of its own.
void X11OwnWindows::endStartup(xcb_window_t window, const QString &token)
{
    QString id = token;
    for (const char16_t special : {u'\\', u'"', u' '})
        id.replace(special, QString(u'\\') + special);
    const QByteArray text = "remove: ID=" + id.toUtf8() + '\0';
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 8;
    message.window = window;
    message.type = m_connection.atom(Atom::netStartupInfoBegin);
    constexpr qsizetype size = sizeof(message.data.data8);
    for (qsizetype at = 0; at < text.size(); at += size) {
        const QByteArray piece = text.mid(at, size).leftJustified(size, '\0');
        std::ranges::copy(piece, message.data.data8);
        xcb_send_event(m_connection.xcb(), false, m_connection.root(),
            XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char *>(&message));
        message.type = m_connection.atom(Atom::netStartupInfo);
    }
}

// Qt, which takes the pointer afterwards, takes any answer of the server for consent, a refusal too.
bool X11OwnWindows::takePointer(quint64 window)
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return true;
    const auto cookie = xcb_grab_pointer(connection, 0, static_cast<xcb_window_t>(window),
        XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC, XCB_WINDOW_NONE,
        XCB_CURSOR_NONE, XCB_CURRENT_TIME);
    const Owned<xcb_grab_pointer_reply_t> reply(
        xcb_grab_pointer_reply(connection, cookie, nullptr));
    return reply && reply->status == XCB_GRAB_STATUS_SUCCESS;
}

// By Qt's connection, which gets the keys then. Qt itself would keep the request for a while, and an end that
// is late costs the user a key press.
void X11OwnWindows::setTakesAllKeys(quint64 window, bool takesAll)
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return;
    if (takesAll)
        xcb_discard_reply(connection,
            xcb_grab_keyboard(connection, 1, static_cast<xcb_window_t>(window), XCB_CURRENT_TIME,
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)
                .sequence);
    else
        xcb_ungrab_keyboard(connection, XCB_CURRENT_TIME);
    const Owned<xcb_get_input_focus_reply_t> done(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus_unchecked(connection), nullptr));
}

// A compositing manager owns the selection made for that, one per X screen.
bool X11OwnWindows::showsTranslucency()
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return true;
    const xcb_atom_t selection = QtX11::atom(connection, "_NET_WM_CM_S0");
    return QtX11::selectionOwner(connection, selection) != noWindow;
}

void X11OwnWindows::setListed(quint64 number, bool isListed)
{
    const auto window = static_cast<xcb_window_t>(number);
    const Answers answers(m_connection);
    if (!isManaged(window))
        changeProperty(window, isListed);
    // Even so: the window manager may have read the property already, to manage the window now.
    askWindowManager(window, isListed);
    if (answers.complete())
        m_missed.remove(number);
    else
        m_missed.insert(number, isListed);
    xcb_flush(m_connection.xcb());
}

// Qt knows frames only in its own points, each of which may be several pixels. By Qt's connection, so that
// the window stands there before Qt shows it.
void X11OwnWindows::setOverlay(quint64 number, const Rect &frame)
{
    xcb_connection_t *connection = QtX11::connection();
    if (!connection)
        return;
    const auto pixels = [](double length) { return quint32(qRound(length)); };
    const quint32 values[]{pixels(frame.x), pixels(frame.y), pixels(frame.width),
        pixels(frame.height), XCB_STACK_MODE_ABOVE};
    xcb_configure_window(connection, static_cast<xcb_window_t>(number),
        XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH
            | XCB_CONFIG_WINDOW_HEIGHT | XCB_CONFIG_WINDOW_STACK_MODE,
        values);
}

bool X11OwnWindows::isManaged(xcb_window_t window)
{
    constexpr quint32 withdrawn = 0;
    return readList(m_connection, window, Atom::wmState).value(0, withdrawn) != withdrawn;
}

void X11OwnWindows::changeProperty(xcb_window_t window, bool isListed)
{
    const Answers answers(m_connection);
    QList<quint32> states = readList(m_connection, window, Atom::netWmState);
    if (!answers.complete())
        return;
    for (const Atom state : unlistedStates) {
        states.removeAll(m_connection.atom(state));
        if (!isListed)
            states << m_connection.atom(state);
    }
    // Who shows the window does so over another connection, which may be served before this one.
    const auto change = xcb_change_property_checked(m_connection.xcb(), XCB_PROP_MODE_REPLACE,
        window, m_connection.atom(Atom::netWmState), XCB_ATOM_ATOM, 32, quint32(states.size()),
        states.constData());
    std::ignore = m_connection.checkedError({&change, 1});
}

void X11OwnWindows::askWindowManager(xcb_window_t window, bool isListed)
{
    const quint32 addOrRemove = isListed ? 0 : 1;
    for (const Atom state : unlistedStates)
        m_connection.sendToRoot(window, Atom::netWmState,
            {addOrRemove, m_connection.atom(state), 0, fromApplication, 0});
}

} // namespace corvane::x11
