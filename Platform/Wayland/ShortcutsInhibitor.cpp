#include "ShortcutsInhibitor.h"

#include "keyboard-shortcuts-inhibit-unstable-v1-client-protocol.h"
#include "QtWayland.h"

#include <string_view>
#include <wayland-client.h>

namespace corvane::wayland {

/// On Qt's connection, since the window is there, in a queue of its own: Qt dispatches only its own.
struct ShortcutsInhibitor::Protocol {
    wl_event_queue *queue = nullptr;
    wl_registry *registry = nullptr;
    zwp_keyboard_shortcuts_inhibit_manager_v1 *manager = nullptr;
    zwp_keyboard_shortcuts_inhibitor_v1 *inhibitor = nullptr;
};

namespace {

void bind(void *data, wl_registry *registry, uint32_t name, const char *interface, uint32_t)
{
    const wl_interface &wanted = zwp_keyboard_shortcuts_inhibit_manager_v1_interface;
    if (std::string_view(interface) == wanted.name)
        *static_cast<void **>(data) = wl_registry_bind(registry, name, &wanted, 1);
}

constexpr wl_registry_listener registryListener{
    .global = &bind,
    .global_remove = [](void *, wl_registry *, uint32_t) {},
};

} // namespace

ShortcutsInhibitor::ShortcutsInhibitor(QWindow &window) : m_protocol(std::make_unique<Protocol>())
{
    wl_display *display = QtWayland::display();
    wl_surface *surface = QtWayland::surface(window);
    wl_seat *seat = QtWayland::seat();
    if (!display || !surface || !seat)
        return;
    m_protocol->queue = wl_display_create_queue(display);
    auto *onQueue = static_cast<wl_display *>(wl_proxy_create_wrapper(display));
    wl_proxy_set_queue(reinterpret_cast<wl_proxy *>(onQueue), m_protocol->queue);
    m_protocol->registry = wl_display_get_registry(onQueue);
    wl_proxy_wrapper_destroy(onQueue);
    void *manager = nullptr;
    wl_registry_add_listener(m_protocol->registry, &registryListener, &manager);
    wl_display_roundtrip_queue(display, m_protocol->queue);
    m_protocol->manager = static_cast<zwp_keyboard_shortcuts_inhibit_manager_v1 *>(manager);
    if (!m_protocol->manager)
        return;
    m_protocol->inhibitor = zwp_keyboard_shortcuts_inhibit_manager_v1_inhibit_shortcuts(
        m_protocol->manager, surface, seat);
    wl_display_roundtrip_queue(display, m_protocol->queue);
}

ShortcutsInhibitor::~ShortcutsInhibitor()
{
    if (m_protocol->inhibitor)
        zwp_keyboard_shortcuts_inhibitor_v1_destroy(m_protocol->inhibitor);
    if (m_protocol->manager)
        zwp_keyboard_shortcuts_inhibit_manager_v1_destroy(m_protocol->manager);
    if (m_protocol->registry)
        wl_registry_destroy(m_protocol->registry);
    if (!m_protocol->queue)
        return;
    // Done when the compositor is.
    if (wl_display *display = QtWayland::display())
        wl_display_roundtrip_queue(display, m_protocol->queue);
    wl_event_queue_destroy(m_protocol->queue);
}

} // namespace corvane::wayland
