#include "X11Session.h"

#include "Properties.h"

#include <tuple>

namespace corvane::x11 {

namespace {

// KWin's switcher heeds only its own state.
constexpr std::array unlistedStates{
    Atom::stateSkipTaskbar, Atom::stateSkipPager, Atom::stateSkipSwitcher};

} // namespace

X11Session::X11Session(Connection &connection) : m_connection(connection)
{
    connect(&connection, &Connection::answersAgain, this, [this] {
        for (const auto &[window, isListed] : std::exchange(m_missed, {}).asKeyValueRange())
            setListed(window, isListed);
    });
}

bool X11Session::isPointerButtonDown()
{
    constexpr quint16 anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3
        | XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;
    const auto cookie = xcb_query_pointer(m_connection.xcb(), m_connection.root());
    const auto pointer = m_connection.reply<xcb_query_pointer_reply_t>(cookie.sequence);
    return pointer && ((*pointer)->mask & anyButton) != 0;
}

void X11Session::setListed(quint64 number, bool isListed)
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

bool X11Session::isManaged(xcb_window_t window)
{
    constexpr quint32 withdrawn = 0;
    return readList(m_connection, window, Atom::wmState).value(0, withdrawn) != withdrawn;
}

void X11Session::changeProperty(xcb_window_t window, bool isListed)
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

void X11Session::askWindowManager(xcb_window_t window, bool isListed)
{
    const quint32 addOrRemove = isListed ? 0 : 1;
    for (const Atom state : unlistedStates)
        m_connection.sendToRoot(window, Atom::netWmState,
            {addOrRemove, m_connection.atom(state), 0, fromApplication, 0});
}

} // namespace corvane::x11
