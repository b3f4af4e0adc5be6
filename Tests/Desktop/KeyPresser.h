#pragma once

#include "Keys.h"
#include "XConnection.h"

#include <xcb/xtest.h>

namespace corvane::desktop {

/// Keys and buttons of an X server (XTEST).
class KeyPresser final : public Keys
{
public:
    explicit KeyPresser(XConnection &connection) : m_connection(connection) { }

    /// Presses a lock, or the key that switches to the next keyboard layout; whether it did.
    [[nodiscard]] bool toggle(Key which)
    {
        const quint16 before = state();
        press({0, which});
        return waitUntil([&] { return state() != before; });
    }
    void key(Key key, bool down) override
    {
        constexpr quint8 evdevOffset = 8;
        send(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, static_cast<quint8>(key) + evdevOffset);
        xcb_flush(m_connection.raw());
    }
    void moveTo(Point point) override
    {
        send(XCB_MOTION_NOTIFY, 0, point);
        m_connection.sync();
    }
    void button(Button button, bool down) override
    {
        send(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<quint8>(button));
        m_connection.sync();
    }

protected:
    void sync() override { m_connection.sync(); }

private:
    void send(quint8 event, quint8 detail, Point point = {})
    {
        xcb_test_fake_input(m_connection.raw(), event, detail, XCB_CURRENT_TIME,
            m_connection.root(), static_cast<qint16>(point.x), static_cast<qint16>(point.y), 0);
    }
    /// Of modifiers, locks and the keyboard layout.
    quint16 state() const
    {
        const auto pointer = m_connection.reply<xcb_query_pointer_reply>(
            xcb_query_pointer(m_connection.raw(), m_connection.root()));
        return pointer ? pointer->mask : quint16(0);
    }

    XConnection &m_connection;
};

} // namespace corvane::desktop
