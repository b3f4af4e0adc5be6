#include "X11Platform.h"

#include "Platform.h"
#include "WallClock.h"
#include "WaylandListener.h"
#include "X11Applications.h"
#include "X11Displays.h"
#include "X11HotKeys.h"
#include "X11OwnWindows.h"
#include "X11Session.h"
#include "X11WindowAccess.h"

#include <QtCore/QCoreApplication>

namespace corvane {

using namespace x11;

namespace {

QString waylandSentence()
{
    const auto compositor = freedesktop::waylandListener();
    const QString name = compositor ? compositor->name : QString();
    return QCoreApplication::translate("corvane::X11Platform",
        "This is a Wayland session%1, where Corvane can neither move windows nor take shortcuts; "
        "it "
        "works in Plasma, under sway, and in X11 sessions.")
        .arg(name.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(name));
}

/// An X server inside a Wayland compositor sees only its own programs' windows, and places none.
bool isInsideWayland(Connection &connection)
{
    if (!connection.extension(xcb_randr_id))
        return false;
    const auto resources = connection.reply<xcb_randr_get_screen_resources_current_reply_t>(
        xcb_randr_get_screen_resources_current(connection.xcb(), connection.root()).sequence);
    if (!resources || xcb_randr_get_screen_resources_current_outputs_length(resources->get()) == 0)
        return false;
    const auto output = connection.reply<xcb_randr_get_output_info_reply_t>(
        xcb_randr_get_output_info(connection.xcb(),
            *xcb_randr_get_screen_resources_current_outputs(resources->get()), XCB_CURRENT_TIME)
            .sequence);
    return output
        && QByteArrayView(xcb_randr_get_output_info_name(output->get()),
            xcb_randr_get_output_info_name_length(output->get()))
               .startsWith("XWAYLAND");
}

expected<std::unique_ptr<Connection>, QString> connect()
{
    auto connection = Connection::open();
    if (!connection && qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        return unexpected<QString>(waylandSentence());
    return connection;
}

class X11Platform final : public Platform
{
public:
    explicit X11Platform(std::unique_ptr<Connection> connection)
        : m_connection(std::move(connection))
        , m_obstacle(isInsideWayland(*m_connection) ? waylandSentence() : QString())
        , m_session(*m_connection)
        , m_ownWindows(*m_connection)
        , m_windowManager(*m_connection)
        , m_registry(*m_connection)
        , m_applications(*m_connection, m_registry)
        , m_windows(*m_connection, m_windowManager, m_registry, m_obstacle)
        , m_displays(*m_connection, m_windowManager, m_registry)
        , m_hotKeys(*m_connection, m_obstacle.isEmpty())
    {
        m_connection->setMessagingTimeout(Connection::usualTimeout);
    }

    /// Everything that it begins with was read.
    [[nodiscard]] bool isComplete() const { return m_connection->unanswered() == 0; }

    WindowAccess &windows() override { return m_windows; }
    Displays &displays() override { return m_displays; }
    Applications &applications() override { return m_applications; }
    HotKeys &hotKeys() override { return m_hotKeys; }
    Session &session() override { return m_session; }
    OwnWindows &ownWindows() override { return m_ownWindows; }
    Clock &clock() override { return m_clock; }

private:
    std::unique_ptr<Connection> m_connection;
    QString m_obstacle;
    freedesktop::WallClock m_clock;
    X11Session m_session;
    X11OwnWindows m_ownWindows;
    WindowManagerLink m_windowManager;
    WindowRegistry m_registry;
    // Before the windows, so that an application is announced before its first window.
    X11Applications m_applications;
    X11WindowAccess m_windows;
    X11Displays m_displays;
    X11HotKeys m_hotKeys;
};

} // namespace

expected<std::unique_ptr<Platform>, QString> openX11Platform(std::function<void()> onBroken)
{
    auto connection = connect();
    if (!connection)
        return unexpected<QString>(connection.error());
    QObject::connect(
        connection->get(), &Connection::broken, connection->get(), std::move(onBroken));
    (*connection)->followRoot(XCB_EVENT_MASK_NO_EVENT);
    auto platform = std::make_unique<X11Platform>(std::move(*connection));
    if (!platform->isComplete())
        return unexpected<QString>(Connection::silenceSentence());
    return platform;
}

QString x11Problem()
{
    const auto connection = connect();
    return connection ? QString() : connection.error();
}

} // namespace corvane
