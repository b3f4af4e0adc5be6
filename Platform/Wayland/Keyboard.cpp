#include "Keyboard.h"

#include "Connection.h"
#include "KeyLabel.h"
#include "PhysicalKey.h"

#include <algorithm>
#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client-protocol.h>
#include <xkbcommon/xkbcommon.h>

namespace corvane::wayland {

namespace {

struct ContextEnd {
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
};

xkb_keysym_t symbolOf(
    xkb_keymap *keymap, const PhysicalKey &key, Keyboard::Level level = Keyboard::Level::plain)
{
    const xkb_keysym_t *symbols = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(
        keymap, key.xkbKeycode(), 0, level == Keyboard::Level::plain ? 0 : 1, &symbols);
    return count > 0 ? symbols[0] : XKB_KEY_NoSymbol;
}

/// On-screen keyboards and programs that type have keymaps of just the keys that they need.
bool isOfWholeKeyboard(xkb_keymap *keymap)
{
    constexpr quint32 returnKey = 28;
    constexpr quint32 spaceKey = 57;
    return symbolOf(keymap, *PhysicalKey::withEvdevCode(returnKey)) == XKB_KEY_Return
        && symbolOf(keymap, *PhysicalKey::withEvdevCode(spaceKey)) == XKB_KEY_space;
}

} // namespace

/// What the compositor's events fill.
struct Keyboard::Seat {
    static void takeKeymap(void *data, wl_keyboard *, uint32_t format, int32_t file, uint32_t size);
    static void followCapabilities(void *data, wl_seat *seat, uint32_t capabilities);

    static constexpr wl_seat_listener seatListener{
        .capabilities = &Seat::followCapabilities,
        .name = [](void *, wl_seat *, const char *) {},
    };
    static constexpr wl_keyboard_listener keyboardListener{
        .keymap = &Seat::takeKeymap,
        .enter = [](void *, wl_keyboard *, uint32_t, wl_surface *, wl_array *) {},
        .leave = [](void *, wl_keyboard *, uint32_t, wl_surface *) {},
        .key = [](void *, wl_keyboard *, uint32_t, uint32_t, uint32_t, uint32_t) {},
        .modifiers = [](void *, wl_keyboard *, uint32_t, uint32_t, uint32_t, uint32_t, uint32_t) {},
        .repeat_info = [](void *, wl_keyboard *, int32_t, int32_t) {},
    };

    Keyboard *owner;
    wl_seat *seat;
    wl_keyboard *keyboard = nullptr;
    std::unique_ptr<xkb_context, ContextEnd> context{xkb_context_new(XKB_CONTEXT_NO_FLAGS)};
    xkb_keymap *keymap = nullptr;
    QByteArray text{};
};

void Keyboard::Seat::followCapabilities(void *data, wl_seat *seat, uint32_t capabilities)
{
    auto &self = *static_cast<Seat *>(data);
    const bool hasKeyboard = capabilities & WL_SEAT_CAPABILITY_KEYBOARD;
    if (hasKeyboard && !self.keyboard) {
        self.keyboard = wl_seat_get_keyboard(seat);
        wl_keyboard_add_listener(self.keyboard, &keyboardListener, data);
    } else if (!hasKeyboard && self.keyboard) {
        wl_keyboard_destroy(std::exchange(self.keyboard, nullptr));
    }
}

void Keyboard::Seat::takeKeymap(
    void *data, wl_keyboard *, uint32_t format, int32_t file, uint32_t size)
{
    auto &self = *static_cast<Seat *>(data);
    QByteArray text;
    if (format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1) {
        void *mapped = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        if (mapped != MAP_FAILED) {
            text = QByteArray(static_cast<const char *>(mapped), size);
            munmap(mapped, size);
        }
    }
    close(file);
    if (text.isEmpty() || text == self.text)
        return;
    xkb_keymap *keymap = xkb_keymap_new_from_string(self.context.get(), text.constData(),
        XKB_KEYMAP_FORMAT_TEXT_V1, XKB_KEYMAP_COMPILE_NO_FLAGS);
    if (keymap && !isOfWholeKeyboard(keymap))
        xkb_keymap_unref(std::exchange(keymap, nullptr));
    if (!keymap)
        return;
    self.text = text;
    if (xkb_keymap *before = std::exchange(self.keymap, keymap))
        xkb_keymap_unref(before);
    Q_EMIT self.owner->changed();
}

Keyboard::Keyboard(Connection &connection)
{
    connect(&connection, &Connection::globalAppeared, this,
        [this, &connection](quint32 name, const QByteArray &interface, quint32 version) {
            if (m_seat || interface != wl_seat_interface.name)
                return;
            auto *seat = static_cast<wl_seat *>(wl_registry_bind(
                connection.registry(), name, &wl_seat_interface, std::min(version, 4u)));
            m_seat = std::make_unique<Seat>(Seat{this, seat});
            wl_seat_add_listener(seat, &Seat::seatListener, m_seat.get());
        });
}

Keyboard::~Keyboard()
{
    if (!m_seat)
        return;
    if (m_seat->keymap)
        xkb_keymap_unref(m_seat->keymap);
    if (m_seat->keyboard)
        wl_keyboard_destroy(m_seat->keyboard);
    wl_seat_destroy(m_seat->seat);
}

quint32 Keyboard::keysym(quint16 virtualKeyCode, Level level) const
{
    const auto key = PhysicalKey::withVirtualKeyCode(virtualKeyCode);
    if (!key || !isKnown())
        return XKB_KEY_NoSymbol;
    return symbolOf(m_seat->keymap, *key, level);
}

QString Keyboard::label(quint16 virtualKeyCode) const
{
    return keyLabel(keysym(virtualKeyCode));
}

bool Keyboard::isKnown() const
{
    return m_seat && m_seat->keymap;
}

} // namespace corvane::wayland
