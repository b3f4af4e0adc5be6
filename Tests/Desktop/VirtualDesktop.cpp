#include "VirtualDesktop.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

QSize boundsOf(const QList<Rect> &displays)
{
    QSize size(0, 0);
    for (const Rect &display : displays)
        size =
            size.expandedTo({static_cast<int>(display.maxX()), static_cast<int>(display.maxY())});
    return size;
}

} // namespace

expected<std::unique_ptr<VirtualDesktop>, QString> VirtualDesktop::start(const Options &options)
{
    std::unique_ptr<VirtualDesktop> desktop(new VirtualDesktop);
    if (const QString error = desktop->startServer(options); !error.isEmpty())
        return unexpected<QString>(error);
    if (const QString error = desktop->startBus(); !error.isEmpty())
        return unexpected<QString>(error);
    return desktop;
}

std::unique_ptr<ChildProcess> VirtualDesktop::launchQtClient(const QString &title)
{
    return launch(QString::fromUtf8(CORVANE_QT_TEST_CLIENT), {title});
}

bool VirtualDesktop::setKeyboardLayouts(const QString &layouts)
{
    // Only with evdev's numbers is key code 133 the Super key.
    return run(u"setxkbmap"_s,
        {u"-rules"_s, u"evdev"_s, u"-model"_s, u"pc105"_s, u"-layout"_s, layouts, u"-option"_s,
            u"grp:menu_toggle"_s});
}

QString VirtualDesktop::startServer(const Options &options)
{
    auto server = DisplayServer::start(
        options.server, folder(), environment(), boundsOf(options.displays), options.without);
    if (!server)
        return server.error();
    m_server = std::move(*server);
    setVariable(u"DISPLAY"_s, displayName());
    m_connection = std::make_unique<XConnection>(displayName());
    if (!m_connection->isValid())
        return u"the X server on %1 takes no connection"_s.arg(displayName());
    m_displays = std::make_unique<DisplayArranger>(options.server, *m_connection, environment());
    if (!options.without.contains(u"RANDR"_s) && !m_displays->arrange(options.displays))
        return u"the X server did not take the displays"_s;
    return setKeyboardLayouts(u"us"_s) ? QString() : u"setxkbmap failed:\n%1"_s.arg(logs());
}

} // namespace corvane::desktop
