#pragma once

#include <wayland-client.h>

/// The messages of protocols whose descriptions no package ships, in the order of their numbers.
namespace corvane::desktop::protocol {

// zwp_virtual_keyboard_v1
extern const wl_interface virtualKeyboardManager;
extern const wl_interface virtualKeyboard;
namespace VirtualKeyboard {
enum Request : uint32_t { createIn = 0, keymap = 0, key = 1, modifiers = 2 };
}

// zwlr_virtual_pointer_v1
extern const wl_interface virtualPointerManager;
extern const wl_interface virtualPointer;
namespace VirtualPointer {
enum Request : uint32_t { createIn = 0, motionAbsolute = 1, button = 2, frame = 4 };
}

// org_kde_kwin_fake_input
extern const wl_interface fakeInput;
namespace FakeInput {
enum Request : uint32_t { authenticate = 0, button = 2, motionAbsolute = 9, key = 10 };
}

// zwlr_layer_shell_v1
extern const wl_interface layerShell;
extern const wl_interface layerSurface;
namespace LayerSurface {
enum Request : uint32_t {
    createIn = 0,
    setSize = 0,
    setAnchor = 1,
    setExclusiveZone = 2,
    setMargin = 3,
    setKeyboardInteractivity = 4,
    acknowledge = 6,
    destroy = 7
};
enum Layer : uint32_t { background = 0, top = 2 };
} // namespace LayerSurface

} // namespace corvane::desktop::protocol
