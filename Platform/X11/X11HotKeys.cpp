#include "X11HotKeys.h"

#include "Xkb.h"

#include <algorithm>

namespace corvane::x11 {

namespace {

/// Has the server repeat a held key without made-up releases between (XkbDetectableAutoRepeat).
/// Returns the type of the extension's events.
uint8_t askForDetectableRepeat(Connection &connection)
{
    const auto *extension = connection.extension(xcb_xkb_id);
    if (!extension)
        return 0;
    connection.discard(xcb_xkb_use_extension(connection.xcb(), 1, 0).sequence);
    // Who uses the extension no longer gets MappingNotify, only the notices that it selects here.
    constexpr quint16 keyboard = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY;
    constexpr quint16 parts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_xkb_select_events(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD,
        keyboard | XCB_XKB_EVENT_TYPE_MAP_NOTIFY, 0, keyboard, parts, parts, nullptr);
    constexpr quint32 flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    connection.discard(
        xcb_xkb_per_client_flags(connection.xcb(), XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0)
            .sequence);
    return extension->first_event;
}

constexpr quint16 realModifiers = XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_CONTROL
    | XCB_MOD_MASK_1 | XCB_MOD_MASK_2 | XCB_MOD_MASK_3 | XCB_MOD_MASK_4 | XCB_MOD_MASK_5;

} // namespace

X11HotKeys::X11HotKeys(Connection &connection, bool isUsable)
    : m_connection(connection), m_isUsable(isUsable), m_bits(readModifierBits(connection))
{
    m_keyboardEvent = askForDetectableRepeat(connection);
    connect(&connection, &Connection::answersAgain, this, &X11HotKeys::review);
    m_connection.addSink(this);
}

X11HotKeys::~X11HotKeys()
{
    m_connection.removeSink(this);
}

qint32 X11HotKeys::registerHotKey(quint32 id, quint16 keyCode, quint32 modifiers)
{
    if (!m_isUsable)
        return static_cast<qint32>(AXError::apiDisabled);
    const Answers answers(m_connection);
    const qint32 status = registerAnswered(id, keyCode, modifiers);
    if (answers.complete())
        return status;
    m_missedAnswer = true;
    return static_cast<qint32>(AXError::cannotComplete);
}

qint32 X11HotKeys::registerAnswered(quint32 id, quint16 keyCode, quint32 modifiers)
{
    const auto keycode = keycodeFor(keyCode);
    const auto bits = bitsFor(modifiers);
    if (!keycode || !bits || !hasKey(m_connection, *keycode))
        return hotKeyInvalid;
    const Registration registration{*keycode, modifiers, *bits};
    const bool isOurs = std::ranges::any_of(m_registrations, [&](const Registration &other) {
        return other.keycode == registration.keycode && other.bits == registration.bits;
    });
    // The server lets one client grab a key twice; a combination still has one owner.
    if (isOurs)
        return hotKeyExists;
    const qint32 status = grab(registration);
    if (status == noErr)
        m_registrations.insert(id, registration);
    return status;
}

void X11HotKeys::unregisterHotKey(quint32 id)
{
    if (const auto registration = m_registrations.constFind(id);
        registration != m_registrations.cend()) {
        ungrab(*registration);
        m_registrations.erase(registration);
    }
}

QString X11HotKeys::label(quint16 keyCode)
{
    const auto known = m_labels.constFind(keyCode);
    if (known != m_labels.cend())
        return *known;
    const auto keycode = keycodeFor(keyCode);
    const Answers answers(m_connection);
    const QString label = keycode ? labelOf(m_connection, *keycode) : QString();
    if (answers.complete())
        m_labels.insert(keyCode, label);
    return label;
}

void X11HotKeys::handle(const xcb_generic_event_t &event)
{
    const int type = event.response_type & 0x7f;
    if (m_keyboardEvent && type == m_keyboardEvent)
        return reviewSoon();
    switch (type) {
    case XCB_KEY_PRESS:
        keyWentDown(reinterpret_cast<const xcb_key_press_event_t &>(event));
        break;
    case XCB_KEY_RELEASE:
        m_held.remove(reinterpret_cast<const xcb_key_release_event_t &>(event).detail);
        break;
    case XCB_MAPPING_NOTIFY:
        if (reinterpret_cast<const xcb_mapping_notify_event_t &>(event).request
            != XCB_MAPPING_POINTER)
            reviewSoon();
        break;
    default:
        break;
    }
}

void X11HotKeys::keyWentDown(const xcb_key_press_event_t &event)
{
    // A release that another grab swallowed must not mute the key for good.
    constexpr xcb_timestamp_t longestRepeatPause = 2000;
    const auto held = m_held.constFind(event.detail);
    const bool isRepeat = held != m_held.cend() && event.time - *held < longestRepeatPause;
    m_held.insert(event.detail, event.time);
    if (isRepeat)
        return;

    const auto ignored = static_cast<quint16>(XCB_MOD_MASK_LOCK | m_bits.numLock);
    const auto bits = static_cast<quint16>(event.state & realModifiers & ~ignored);
    for (const auto &[id, registration] : m_registrations.asKeyValueRange()) {
        if (registration.keycode == event.detail && registration.bits == bits) {
            m_connection.defer([this, pressedId = id] {
                if (m_registrations.contains(pressedId))
                    Q_EMIT pressed(pressedId);
            });
            return;
        }
    }
}

void X11HotKeys::reviewSoon()
{
    if (std::exchange(m_reviewScheduled, true))
        return;
    m_connection.defer([this] {
        m_reviewScheduled = false;
        review();
    });
}

/// Starts anew where the modifiers are others now, or where nothing answered to a registration. Keys
/// stay grabbed meanwhile, wherever they lie: a key press may fall between.
void X11HotKeys::review()
{
    if (!std::exchange(m_labels, {}).isEmpty())
        Q_EMIT labelsChanged();
    const Answers answers(m_connection);
    const ModifierBits bits = readModifierBits(m_connection);
    if (!answers.complete() || (bits == m_bits && !m_missedAnswer))
        return;
    QSet<Combination> old = combinations();
    // With other modifiers, what was refused before may be had now.
    const bool hasSameKeys = bits.alt == m_bits.alt && bits.super == m_bits.super;
    m_bits = bits;
    bool isWhole = !std::exchange(m_missedAnswer, false) && hasSameKeys;
    for (Registration &registration : m_registrations) {
        const auto now = bitsFor(registration.modifiers);
        registration.bits = now.value_or(registration.bits);
        isWhole = now && grab(registration) == noErr && isWhole;
    }
    for (const auto &[keycode, modifiers] : old.subtract(combinations()))
        xcb_ungrab_key(m_connection.xcb(), keycode, m_connection.root(), modifiers);
    xcb_flush(m_connection.xcb());
    if (isWhole)
        return;
    for (const Registration &registration : std::as_const(m_registrations))
        ungrab(registration);
    m_registrations.clear();
    Q_EMIT registrationsLost();
}

QSet<X11HotKeys::Combination> X11HotKeys::combinations() const
{
    QSet<Combination> combinations;
    for (const Registration &registration : m_registrations) {
        for (const quint16 bits : lockVariants(registration.bits))
            combinations.insert({registration.keycode, bits});
    }
    return combinations;
}

std::optional<quint16> X11HotKeys::bitsFor(quint32 modifiers) const
{
    quint16 bits = 0;
    const auto add = [&](quint32 modifier, quint16 bit) {
        if (modifiers & modifier)
            bits = static_cast<quint16>(bits | bit);
        return !(modifiers & modifier) || bit != 0;
    };
    const bool complete = add(controlKey, XCB_MOD_MASK_CONTROL) && add(shiftKey, XCB_MOD_MASK_SHIFT)
        && add(optionKey, m_bits.alt) && add(cmdKey, m_bits.super);
    return complete ? std::optional(bits) : std::nullopt;
}

QList<quint16> X11HotKeys::lockVariants(quint16 bits) const
{
    const auto caps = static_cast<quint16>(bits | XCB_MOD_MASK_LOCK);
    if (!m_bits.numLock)
        return {bits, caps};
    return {bits, caps, static_cast<quint16>(bits | m_bits.numLock),
        static_cast<quint16>(caps | m_bits.numLock)};
}

qint32 X11HotKeys::grab(const Registration &registration)
{
    QList<xcb_void_cookie_t> cookies;
    for (const quint16 bits : lockVariants(registration.bits))
        cookies << xcb_grab_key_checked(m_connection.xcb(), false, m_connection.root(), bits,
            registration.keycode, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const int error = m_connection.checkedError(cookies);
    if (error == 0)
        return noErr;
    ungrab(registration);
    if (error < 0)
        return static_cast<qint32>(AXError::cannotComplete);
    return error == XCB_ACCESS ? hotKeyExists : hotKeyInvalid;
}

void X11HotKeys::ungrab(const Registration &registration)
{
    for (const quint16 bits : lockVariants(registration.bits))
        xcb_ungrab_key(m_connection.xcb(), registration.keycode, m_connection.root(), bits);
    xcb_flush(m_connection.xcb());
}

} // namespace corvane::x11
