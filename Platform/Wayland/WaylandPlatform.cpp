#include "WaylandPlatform.h"

#include "Outputs.h"
#include "WallClock.h"
#include "WaylandApplications.h"
#include "WaylandDisplays.h"
#include "WaylandOwnWindows.h"
#include "WaylandSession.h"
#include "WaylandWindowAccess.h"

#include <QtCore/QCoreApplication>

namespace corvane::wayland {

namespace {

class WaylandPlatform final : public Platform
{
public:
    WaylandPlatform(std::unique_ptr<Connection> connection, CompositorParts parts)
        : m_connection(std::move(connection))
        , m_compositor(std::move(parts.compositor))
        , m_outputs(*m_connection)
        , m_keyboard(*m_connection)
        , m_isComplete(describe())
        , m_session(*m_compositor)
        , m_registry(*m_compositor)
        , m_placer(m_registry)
        , m_ownWindows(m_registry, m_placer)
        , m_applications(m_registry)
        , m_windows(m_registry, m_placer)
        , m_displays(m_outputs, *m_connection, m_registry)
        , m_hotKeys(parts.makeHotKeys(m_keyboard))
    {
        QObject::connect(&m_windows, &WaylandWindowAccess::activating, &m_applications,
            &WaylandApplications::allowFocus);
    }

    /// Everything that it begins with was told.
    [[nodiscard]] bool isComplete() const { return m_isComplete; }

    WindowAccess &windows() override { return m_windows; }
    Displays &displays() override { return m_displays; }
    Applications &applications() override { return m_applications; }
    HotKeys &hotKeys() override { return *m_hotKeys; }
    Session &session() override { return m_session; }
    OwnWindows &ownWindows() override { return m_ownWindows; }
    Clock &clock() override { return m_clock; }

private:
    /// The compositor names its objects, then describes them, then what they brought with them.
    [[nodiscard]] bool describe()
    {
        return m_connection->roundTrip() && m_connection->roundTrip() && m_connection->roundTrip();
    }

    std::unique_ptr<Connection> m_connection;
    std::unique_ptr<Compositor> m_compositor;
    Outputs m_outputs;
    Keyboard m_keyboard;
    bool m_isComplete;
    freedesktop::WallClock m_clock;
    WaylandSession m_session;
    ToplevelRegistry m_registry;
    Placer m_placer;
    WaylandOwnWindows m_ownWindows;
    // Before the windows, so that an application is announced before its first window.
    WaylandApplications m_applications;
    WaylandWindowAccess m_windows;
    WaylandDisplays m_displays;
    std::unique_ptr<HotKeys> m_hotKeys;
};

} // namespace

expected<std::unique_ptr<Platform>, QString> openWaylandPlatform(
    CompositorParts parts, std::function<void()> onBroken)
{
    auto connection = Connection::open();
    if (!connection)
        return unexpected<QString>(connection.error());
    QObject::connect(
        connection->get(), &Connection::broken, connection->get(), std::move(onBroken));
    auto platform = std::make_unique<WaylandPlatform>(std::move(*connection), std::move(parts));
    if (!platform->isComplete())
        return unexpected<QString>(QCoreApplication::translate(
            "corvane::wayland", "The Wayland compositor of this session does not answer."));
    return platform;
}

} // namespace corvane::wayland
