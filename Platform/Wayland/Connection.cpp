#include "Connection.h"

#include <QtCore/QCoreApplication>

#include <poll.h>
#include <wayland-client-protocol.h>

namespace corvane::wayland {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

// KWin reads the whole program file when it connects, to know whom it trusts with what.
constexpr auto patience = 10s;

constexpr wl_registry_listener registryListener{
    .global =
        [](void *data, wl_registry *, uint32_t name, const char *interface, uint32_t version) {
            Q_EMIT static_cast<Connection *>(data)->globalAppeared(name, interface, version);
        },
    .global_remove =
        [](void *data, wl_registry *, uint32_t name) {
            Q_EMIT static_cast<Connection *>(data)->globalVanished(name);
        },
};

constexpr wl_callback_listener doneListener{
    .done = [](void *data, wl_callback *, uint32_t) { *static_cast<bool *>(data) = true; },
};

} // namespace

expected<std::unique_ptr<Connection>, QString> Connection::open()
{
    wl_display *display = wl_display_connect(nullptr);
    if (!display)
        return unexpected<QString>(QCoreApplication::translate("corvane::wayland",
            "No Wayland compositor answers at the display \"%1\" that WAYLAND_DISPLAY names.")
                                       .arg(qEnvironmentVariable("WAYLAND_DISPLAY")));
    return std::unique_ptr<Connection>(new Connection(display));
}

Connection::Connection(wl_display *display)
    : m_display(display), m_registry(wl_display_get_registry(display))
{
    wl_registry_add_listener(m_registry, &registryListener, this);
    m_notifier.emplace(wl_display_get_fd(display), QSocketNotifier::Read);
    connect(&*m_notifier, &QSocketNotifier::activated, this, &Connection::drain);
}

Connection::~Connection()
{
    m_notifier.reset();
    wl_registry_destroy(m_registry);
    wl_display_disconnect(m_display);
}

bool Connection::roundTrip()
{
    bool isDone = false;
    wl_callback *callback = wl_display_sync(m_display);
    wl_callback_add_listener(callback, &doneListener, &isDone);
    const auto deadline = Clock::now() + patience;
    while (!isDone && readUntil(deadline)) { }
    wl_callback_destroy(callback);
    reviewHealth();
    return isDone;
}

void Connection::drain()
{
    while (readUntil(Clock::now())) { }
    reviewHealth();
}

bool Connection::readUntil(Clock::time_point deadline)
{
    if (wl_display_prepare_read(m_display) != 0)
        return wl_display_dispatch_pending(m_display) > 0;
    wl_display_flush(m_display);
    pollfd descriptor{wl_display_get_fd(m_display), POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    if (poll(&descriptor, 1, std::max(0, int(left.count()))) <= 0) {
        wl_display_cancel_read(m_display);
        return false;
    }
    return wl_display_read_events(m_display) == 0 && wl_display_dispatch_pending(m_display) >= 0;
}

void Connection::reviewHealth()
{
    if (wl_display_get_error(m_display) == 0 || std::exchange(m_isBroken, true))
        return;
    m_notifier->setEnabled(false);
    QMetaObject::invokeMethod(this, &Connection::broken, Qt::QueuedConnection);
}

} // namespace corvane::wayland
