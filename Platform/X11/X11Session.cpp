#include "X11Session.h"

#include "Properties.h"

namespace corvane::x11 {

bool X11Session::isPointerButtonDown()
{
    constexpr quint16 anyButton = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3
        | XCB_BUTTON_MASK_4 | XCB_BUTTON_MASK_5;
    const auto cookie = xcb_query_pointer(m_connection.xcb(), m_connection.root());
    const auto pointer = m_connection.reply<xcb_query_pointer_reply_t>(cookie.sequence);
    return pointer && ((*pointer)->mask & anyButton) != 0;
}

SystemFacts X11Session::systemFacts()
{
    SystemFacts facts = FreedesktopSession::systemFacts();
    facts.session = QStringLiteral("X11");
    const auto manager =
        readList(m_connection, m_connection.root(), Atom::netSupportingWmCheck).value(0);
    if (manager != noWindow)
        facts.windowManager = textOf(
            propertyReply(m_connection, requestProperty(m_connection, manager, Atom::netWmName)));
    return facts;
}

} // namespace corvane::x11
