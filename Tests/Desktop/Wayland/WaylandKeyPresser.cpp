#include "WaylandKeyPresser.h"

#include "ProtocolTables.h"

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;
using namespace protocol;

namespace {

uint32_t now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<uint32_t>(std::chrono::duration_cast<Milliseconds>(time).count());
}

uint32_t codeOf(Keys::Button button)
{
    return button == Keys::Button::left ? BTN_LEFT : BTN_RIGHT;
}

struct FreeKeys {
    void operator()(xkb_context *context) const { xkb_context_unref(context); }
    void operator()(xkb_keymap *keymap) const { xkb_keymap_unref(keymap); }
    void operator()(xkb_state *state) const { xkb_state_unref(state); }
};

/// Virtual devices, whose keymap and modifiers are ours to tell.
class VirtualDevices final : public WaylandKeyPresser
{
public:
    VirtualDevices(std::unique_ptr<WaylandConnection> own, wl_proxy *keyboards,
        const std::function<Size()> &desk)
        : WaylandKeyPresser(std::move(own)), m_desk(desk)
    {
        m_seat = connection().bind<wl_seat>(wl_seat_interface);
        m_keyboard = connection().own(wl_proxy_marshal_constructor(
            keyboards, VirtualKeyboard::createIn, &virtualKeyboard, m_seat, nullptr));
        std::ignore = setLayouts("us");
    }

    bool setLayouts(const QByteArray &layouts) override
    {
        const xkb_rule_names names{"evdev", "pc105", layouts.constData(), "", "grp:menu_toggle"};
        m_keymap.reset(xkb_keymap_new_from_names(m_context.get(), &names, {}));
        if (!m_keymap)
            return false;
        m_state.reset(xkb_state_new(m_keymap.get()));
        const std::unique_ptr<char, decltype(&std::free)> text(
            xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1), std::free);
        const size_t size = std::strlen(text.get()) + 1;
        const int file = ::memfd_create("keymap", MFD_CLOEXEC);
        const bool isWritten = ::write(file, text.get(), size) == static_cast<ssize_t>(size);
        wl_proxy_marshal(m_keyboard, VirtualKeyboard::keymap, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1,
            file, static_cast<uint32_t>(size));
        sync();
        ::close(file);
        return isWritten;
    }
    void key(Key key, bool down) override
    {
        constexpr uint32_t evdevOffset = 8;
        const uint32_t code = static_cast<uint32_t>(key);
        wl_proxy_marshal(m_keyboard, VirtualKeyboard::key, now(), code, uint32_t(down));
        xkb_state_update_key(m_state.get(), code + evdevOffset, down ? XKB_KEY_DOWN : XKB_KEY_UP);
        const auto mask = [this](xkb_state_component which) {
            return xkb_state_serialize_mods(m_state.get(), which);
        };
        wl_proxy_marshal(m_keyboard, VirtualKeyboard::modifiers, mask(XKB_STATE_MODS_DEPRESSED),
            mask(XKB_STATE_MODS_LATCHED), mask(XKB_STATE_MODS_LOCKED),
            xkb_state_serialize_layout(m_state.get(), XKB_STATE_LAYOUT_EFFECTIVE));
        wl_display_flush(connection().raw());
    }
    void moveTo(Point point) override
    {
        const Size desk = m_desk();
        wl_proxy_marshal(pointer(), VirtualPointer::motionAbsolute, now(), uint32_t(point.x),
            uint32_t(point.y), uint32_t(desk.width), uint32_t(desk.height));
        wl_proxy_marshal(pointer(), VirtualPointer::frame);
        sync();
    }
    void button(Button button, bool down) override
    {
        wl_proxy_marshal(pointer(), VirtualPointer::button, now(), codeOf(button), uint32_t(down));
        wl_proxy_marshal(pointer(), VirtualPointer::frame);
        sync();
    }

private:
    wl_proxy *pointer()
    {
        if (!m_pointer)
            m_pointer = connection().own(
                wl_proxy_marshal_constructor(connection().bind<wl_proxy>(virtualPointerManager),
                    VirtualPointer::createIn, &virtualPointer, m_seat, nullptr));
        return m_pointer;
    }

    std::function<Size()> m_desk;
    wl_seat *m_seat;
    wl_proxy *m_keyboard;
    wl_proxy *m_pointer = nullptr; ///< only once it is used: it shows a cursor
    std::unique_ptr<xkb_context, FreeKeys> m_context{xkb_context_new({})};
    std::unique_ptr<xkb_keymap, FreeKeys> m_keymap;
    std::unique_ptr<xkb_state, FreeKeys> m_state;
};

/// Devices of KWin's own, which the tests work.
class FakeDevices final : public WaylandKeyPresser
{
public:
    FakeDevices(std::unique_ptr<WaylandConnection> own, wl_proxy *input)
        : WaylandKeyPresser(std::move(own)), m_input(input)
    {
        wl_proxy_marshal(m_input, FakeInput::authenticate, "Tests", "to press keys");
        sync();
    }

    void key(Key key, bool down) override
    {
        wl_proxy_marshal(m_input, FakeInput::key, static_cast<uint32_t>(key), uint32_t(down));
        wl_display_flush(connection().raw());
    }
    void moveTo(Point point) override
    {
        wl_proxy_marshal(m_input, FakeInput::motionAbsolute, wl_fixed_from_double(point.x),
            wl_fixed_from_double(point.y));
        sync();
    }
    void button(Button button, bool down) override
    {
        wl_proxy_marshal(m_input, FakeInput::button, codeOf(button), uint32_t(down));
        sync();
    }

private:
    wl_proxy *m_input;
};

} // namespace

expected<std::unique_ptr<WaylandKeyPresser>, QString> WaylandKeyPresser::plugIn(
    const QString &displayName, const std::function<Size()> &desk)
{
    auto connection = std::make_unique<WaylandConnection>(displayName);
    if (!connection->isValid())
        return unexpected<QString>(u"the compositor takes no connection"_s);
    if (auto *const keyboards = connection->bind<wl_proxy>(virtualKeyboardManager))
        return std::make_unique<VirtualDevices>(std::move(connection), keyboards, desk);
    if (auto *const input = connection->bind<wl_proxy>(fakeInput, 4))
        return std::make_unique<FakeDevices>(std::move(connection), input);
    return unexpected<QString>(u"the compositor lets nobody press keys"_s);
}

} // namespace corvane::desktop
