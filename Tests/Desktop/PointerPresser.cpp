#include "PointerPresser.h"

#include <xcb/xtest.h>

namespace corvane::desktop {

PointerPresser::PointerPresser(XConnection &connection) : m_connection(connection) { }

void PointerPresser::moveTo(Point point)
{
    send(XCB_MOTION_NOTIFY, 0, point);
}

void PointerPresser::press(Button button)
{
    send(XCB_BUTTON_PRESS, static_cast<quint8>(button), {});
}

void PointerPresser::release(Button button)
{
    send(XCB_BUTTON_RELEASE, static_cast<quint8>(button), {});
}

void PointerPresser::click(Point point, Button button)
{
    moveTo(point);
    press(button);
    release(button);
}

void PointerPresser::send(quint8 event, quint8 detail, Point point)
{
    xcb_test_fake_input(m_connection.raw(), event, detail, XCB_CURRENT_TIME, m_connection.root(),
        static_cast<qint16>(point.x), static_cast<qint16>(point.y), 0);
    m_connection.sync();
}

} // namespace corvane::desktop
