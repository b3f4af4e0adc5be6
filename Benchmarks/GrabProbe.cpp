#include "GrabProbe.h"

namespace corvane::bench {

using namespace desktop;

GrabbedKey::GrabbedKey(const KeyStroke &stroke)
{
    constexpr quint8 evdevOffset = 8;
    keycode = static_cast<quint8>(static_cast<quint8>(stroke.key) + evdevOffset);
    const auto add = [&](quint8 held, quint16 bit) {
        if (stroke.modifiers & held)
            modifiers = static_cast<quint16>(modifiers | bit);
    };
    add(KeyStroke::control, XCB_MOD_MASK_CONTROL);
    add(KeyStroke::alt, XCB_MOD_MASK_1);
    add(KeyStroke::shift, XCB_MOD_MASK_SHIFT);
    add(KeyStroke::super, XCB_MOD_MASK_4);
}

bool isGrabbed(XConnection &connection, const KeyStroke &stroke)
{
    const GrabbedKey key(stroke);
    xcb_connection_t *raw = connection.raw();
    // The server stands still meanwhile, so that nobody finds the key taken by this question.
    xcb_grab_server(raw);
    const xcb_void_cookie_t grab = xcb_grab_key_checked(raw, 0, connection.root(), key.modifiers,
        key.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_ungrab_key(raw, key.keycode, connection.root(), key.modifiers);
    xcb_ungrab_server(raw);
    const Reply<xcb_generic_error_t> error(xcb_request_check(raw, grab));
    return error && error->error_code == XCB_ACCESS;
}

} // namespace corvane::bench
