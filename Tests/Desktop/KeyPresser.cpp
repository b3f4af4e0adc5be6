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

KeyPresser::KeyPresser(XConnection &connection) : m_connection(connection) { }

void KeyPresser::press(const KeyStroke &stroke)
{
    holdModifiers(stroke);
    key(stroke.key, true);
    key(stroke.key, false);
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
    if (isLocked(lock) != on) {
        const Key lockKey = lock == Lock::caps ? Key::capsLock : Key::numLock;
        key(lockKey, true);
        key(lockKey, false);
    }
    return waitUntil([&] { return isLocked(lock) == on; });
}

bool KeyPresser::switchLayout()
{
    constexpr quint16 groupMask = 0x6000;
    const quint16 before = state() & groupMask;
    key(Key::menu, true);
    key(Key::menu, false);
    return waitUntil([&] { return (state() & groupMask) != before; });
}

void KeyPresser::holdModifiers(const KeyStroke &stroke)
{
    for (const auto &[bit, modifier] : modifierKeys) {
        if (stroke.modifiers & bit)
            key(modifier, true);
    }
    m_connection.sync();
}

void KeyPresser::releaseModifiers(const KeyStroke &stroke)
{
    for (const auto &[bit, modifier] : modifierKeys) {
        if (stroke.modifiers & bit)
            key(modifier, false);
    }
    m_connection.sync();
}

void KeyPresser::key(Key key, bool down)
{
    xcb_test_fake_input(m_connection.raw(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
        static_cast<quint8>(static_cast<quint8>(key) + evdevOffset), XCB_CURRENT_TIME,
        m_connection.root(), 0, 0, 0);
    xcb_flush(m_connection.raw());
}

quint16 KeyPresser::state()
{
    const auto cookie = xcb_query_pointer(m_connection.raw(), m_connection.root());
    const Reply<xcb_query_pointer_reply_t> pointer(
        xcb_query_pointer_reply(m_connection.raw(), cookie, nullptr));
    return pointer ? pointer->mask : quint16(0);
}

bool KeyPresser::isLocked(Lock lock)
{
    return state() & (lock == Lock::caps ? XCB_MOD_MASK_LOCK : XCB_MOD_MASK_2);
}

} // namespace corvane::desktop
