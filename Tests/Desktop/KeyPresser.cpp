#include "KeyPresser.h"

#include <array>
#include <xcb/xtest.h>

namespace corvane::desktop {

namespace {

constexpr quint8 evdevOffset = 8;

constexpr std::array modifierKeys{
    std::pair{KeyStroke::control, Key::leftControl},
    std::pair{KeyStroke::alt, Key::leftAlt},
    std::pair{KeyStroke::shift, Key::leftShift},
    std::pair{KeyStroke::super, Key::leftSuper},
};

} // namespace

void KeyPresser::press(const KeyStroke &stroke)
{
    holdModifiers(stroke);
    tap(stroke.key);
    releaseModifiers(stroke);
}

bool KeyPresser::holdUntil(
    const KeyStroke &stroke, const std::function<bool()> &condition, Milliseconds deadline)
{
    holdModifiers(stroke);
    key(stroke.key, true);
    const bool held = waitUntil(condition, deadline);
    key(stroke.key, false);
    releaseModifiers(stroke);
    return held;
}

bool KeyPresser::setLock(Lock lock, bool on)
{
    const bool isCaps = lock == Lock::caps;
    const quint16 mask = isCaps ? XCB_MOD_MASK_LOCK : XCB_MOD_MASK_2;
    const auto isOn = [&] { return (state() & mask) != 0; };
    if (isOn() != on)
        tap(isCaps ? Key::capsLock : Key::numLock);
    return waitUntil([&] { return isOn() == on; });
}

bool KeyPresser::switchLayout()
{
    constexpr quint16 groupMask = 0x6000;
    const quint16 before = state() & groupMask;
    tap(Key::menu);
    return waitUntil([&] { return (state() & groupMask) != before; });
}

void KeyPresser::key(Key key, bool down)
{
    send(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, static_cast<quint8>(key) + evdevOffset);
    xcb_flush(m_connection.raw());
}

void KeyPresser::moveTo(Point point)
{
    send(XCB_MOTION_NOTIFY, 0, point);
    m_connection.sync();
}

void KeyPresser::button(Button button, bool down)
{
    send(down ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, static_cast<quint8>(button));
    m_connection.sync();
}

void KeyPresser::click(Point point, Button which)
{
    moveTo(point);
    button(which, true);
    button(which, false);
}

void KeyPresser::tap(Key which)
{
    key(which, true);
    key(which, false);
}

void KeyPresser::setModifiers(const KeyStroke &stroke, bool down)
{
    for (const auto &[bit, modifier] : modifierKeys) {
        if (stroke.modifiers & bit)
            key(modifier, down);
    }
    m_connection.sync();
}

void KeyPresser::send(quint8 event, quint8 detail, Point point)
{
    xcb_test_fake_input(m_connection.raw(), event, detail, XCB_CURRENT_TIME, m_connection.root(),
        static_cast<qint16>(point.x), static_cast<qint16>(point.y), 0);
}

quint16 KeyPresser::state()
{
    const auto cookie = xcb_query_pointer(m_connection.raw(), m_connection.root());
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(m_connection.raw(), cookie, nullptr));
    return pointer ? pointer->mask : quint16(0);
}

} // namespace corvane::desktop
