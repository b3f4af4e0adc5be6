#include "ProtocolTables.h"

#include <array>

namespace corvane::desktop::protocol {

namespace {

// Of messages that name no objects of a certain interface.
constexpr std::array<const wl_interface *, 6> anything{};

constexpr wl_message message(const char *name, const char *signature)
{
    return {name, signature, const_cast<const wl_interface **>(anything.data())};
}

std::array keyboardTypes{&wl_seat_interface, &virtualKeyboard};
std::array pointerTypes{&wl_seat_interface, &virtualPointer};
std::array layerTypes{&layerSurface, &wl_surface_interface, &wl_output_interface,
    static_cast<const wl_interface *>(nullptr), static_cast<const wl_interface *>(nullptr)};

const std::array keyboardManagerRequests{
    wl_message{"create_virtual_keyboard", "on", keyboardTypes.data()}};
const std::array keyboardRequests{message("keymap", "uhu"), message("key", "uuu"),
    message("modifiers", "uuuu"), message("destroy", "")};

const std::array pointerManagerRequests{
    wl_message{"create_virtual_pointer", "?on", pointerTypes.data()}, message("destroy", "")};
const std::array pointerRequests{message("motion", "uff"), message("motion_absolute", "uuuuu"),
    message("button", "uuu"), message("axis", "uuf"), message("frame", "")};

const std::array fakeInputRequests{message("authenticate", "ss"), message("pointer_motion", "ff"),
    message("button", "uu"), message("axis", "uf"), message("touch_down", "2uff"),
    message("touch_motion", "2uff"), message("touch_up", "2u"), message("touch_cancel", "2"),
    message("touch_frame", "2"), message("pointer_motion_absolute", "3ff"),
    message("keyboard_key", "4uu")};

const std::array layerShellRequests{wl_message{"get_layer_surface", "no?ous", layerTypes.data()}};
const std::array layerSurfaceRequests{message("set_size", "uu"), message("set_anchor", "u"),
    message("set_exclusive_zone", "i"), message("set_margin", "iiii"),
    message("set_keyboard_interactivity", "u"), message("get_popup", "o"),
    message("ack_configure", "u"), message("destroy", "")};
const std::array layerSurfaceEvents{message("configure", "uuu"), message("closed", "")};

template <size_t count>
constexpr wl_interface interface(
    const char *name, int version, const std::array<wl_message, count> &requests)
{
    return {name, version, int(count), requests.data(), 0, nullptr};
}

} // namespace

const wl_interface virtualKeyboardManager =
    interface("zwp_virtual_keyboard_manager_v1", 1, keyboardManagerRequests);
const wl_interface virtualKeyboard = interface("zwp_virtual_keyboard_v1", 1, keyboardRequests);
const wl_interface virtualPointerManager =
    interface("zwlr_virtual_pointer_manager_v1", 1, pointerManagerRequests);
const wl_interface virtualPointer = interface("zwlr_virtual_pointer_v1", 1, pointerRequests);
const wl_interface fakeInput = interface("org_kde_kwin_fake_input", 4, fakeInputRequests);
const wl_interface layerShell = interface("zwlr_layer_shell_v1", 1, layerShellRequests);
const wl_interface layerSurface{"zwlr_layer_surface_v1", 1, int(layerSurfaceRequests.size()),
    layerSurfaceRequests.data(), int(layerSurfaceEvents.size()), layerSurfaceEvents.data()};

} // namespace corvane::desktop::protocol
