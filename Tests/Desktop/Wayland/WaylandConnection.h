#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

#include <algorithm>
#include <string_view>
#include <wayland-client.h>

namespace corvane::desktop {

/// A connection of the tests' own to a compositor, and what that offers.
class WaylandConnection
{
public:
    /// `displayName` is a socket's name or path; by default what the environment names.
    explicit WaylandConnection(const QString &displayName = {})
        : m_display(wl_display_connect(
            displayName.isEmpty() ? nullptr : displayName.toLocal8Bit().constData()))
    {
        static constexpr wl_registry_listener listener{
            [](void *self, wl_registry *, uint32_t name, const char *interface, uint32_t version) {
                static_cast<WaylandConnection *>(self)->m_globals
                    << Global{name, QByteArray(interface), version};
            },
            [](void *self, wl_registry *, uint32_t name) {
                static_cast<WaylandConnection *>(self)->m_globals.removeIf(
                    [name](const Global &each) { return each.name == name; });
            }};
        if (!m_display)
            return;
        m_registry = own(wl_display_get_registry(m_display));
        wl_registry_add_listener(m_registry, &listener, this);
        sync();
    }
    ~WaylandConnection()
    {
        for (void *const each : m_owned)
            wl_proxy_destroy(static_cast<wl_proxy *>(each));
        if (m_display)
            wl_display_disconnect(m_display);
    }
    Q_DISABLE_COPY_MOVE(WaylandConnection)

    [[nodiscard]] bool isValid() const { return m_display && !wl_display_get_error(m_display); }
    [[nodiscard]] wl_display *raw() const { return m_display; }

    /// The newest global with this interface, in at most this version; null when there is none.
    template <typename T>
    [[nodiscard]] T *bind(const wl_interface &interface, uint32_t version = 1)
    {
        const auto found = std::find_if(m_globals.crbegin(), m_globals.crend(),
            [&](const Global &each) { return each.interface == interface.name; });
        if (found == m_globals.crend())
            return nullptr;
        return own(static_cast<T *>(wl_registry_bind(
            m_registry, found->name, &interface, std::min(version, found->version))));
    }
    /// All of them, oldest first.
    template <typename T>
    [[nodiscard]] QList<T *> bindAll(const wl_interface &interface)
    {
        QList<T *> bound;
        for (const Global &each : std::as_const(m_globals)) {
            if (each.interface == interface.name)
                bound << own(
                    static_cast<T *>(wl_registry_bind(m_registry, each.name, &interface, 1)));
        }
        return bound;
    }
    /// The object ends with the connection.
    template <typename T>
    T *own(T *object)
    {
        m_owned << object;
        return object;
    }
    /// Returns once the compositor has dealt with every request so far.
    void sync() { wl_display_roundtrip(m_display); }

private:
    struct Global {
        uint32_t name;
        QByteArray interface;
        uint32_t version;
    };

    wl_display *m_display;
    wl_registry *m_registry = nullptr;
    QList<Global> m_globals;
    QList<void *> m_owned;
};

} // namespace corvane::desktop
