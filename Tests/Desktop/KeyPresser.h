#pragma once

#include "Waiting.h"
#include "XConnection.h"

namespace corvane::desktop {

/// Physical keys by evdev code, which no keyboard layout changes.
enum class Key : quint8 {
    escape = 1,
    digit1 = 2,
    minus = 12,
    equal = 13,
    e = 18,
    t = 20,
    o = 24,
    enter = 28,
    leftControl = 29,
    d = 32,
    f = 33,
    g = 34,
    leftShift = 42,
    c = 46,
    m = 50,
    slash = 53,
    leftAlt = 56,
    capsLock = 58,
    numLock = 69,
    up = 103,
    left = 105,
    right = 106,
    down = 108,
    leftSuper = 125,
    menu = 127,
};

/// A key held down together with modifiers.
struct KeyStroke {
    static constexpr quint8 control = 1;
    static constexpr quint8 alt = 2;
    static constexpr quint8 shift = 4;
    static constexpr quint8 super = 8;

    quint8 modifiers = 0;
    Key key = Key::enter;
};

/// Presses keys as a keyboard does (XTEST).
class KeyPresser
{
public:
    enum class Lock { caps, num };

    explicit KeyPresser(XConnection &connection);

    /// Modifiers down, key down and up, modifiers up. Returns when the server has taken them all.
    void press(const KeyStroke &stroke);
    /// Keeps the stroke down until the condition holds, so that the key repeats.
    [[nodiscard]] bool holdUntil(const KeyStroke &stroke, const std::function<bool()> &condition,
        Milliseconds deadline = patience);
    /// Returns whether the lock is as asked in the end.
    [[nodiscard]] bool setLock(Lock lock, bool on);

    /// Presses the key that switches to the next keyboard layout; whether it did.
    [[nodiscard]] bool switchLayout();

    /// The two halves of `press`, for measuring: everything before the key goes down, and after.
    void holdModifiers(const KeyStroke &stroke);
    void releaseModifiers(const KeyStroke &stroke);
    /// Presses or releases one key and flushes, without waiting for the server.
    void key(Key key, bool down);

private:
    quint16 state();
    bool isLocked(Lock lock);

    XConnection &m_connection;
};

} // namespace corvane::desktop
