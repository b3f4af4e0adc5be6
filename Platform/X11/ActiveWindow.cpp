#include "ActiveWindow.h"

#include "Properties.h"

namespace corvane::x11 {

xcb_window_t activeWindow(Connection &connection)
{
    return readList(connection, connection.root(), Atom::netActiveWindow).value(0);
}

void requestActivation(Connection &connection, xcb_window_t window)
{
    connection.sendToRoot(
        window, Atom::netActiveWindow, {fromPager, XCB_CURRENT_TIME, noWindow, 0, 0});
}

} // namespace corvane::x11
