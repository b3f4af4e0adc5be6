#include "VirtualDesktop.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

expected<std::unique_ptr<VirtualDesktop>, QString> VirtualDesktop::start(const Options &options)
{
    std::unique_ptr<VirtualDesktop> desktop(new VirtualDesktop);
    if (const QString error = desktop->prepare(options); !error.isEmpty())
        return unexpected<QString>(u"%1:\n%2"_s.arg(error, desktop->logs()));
    return desktop;
}

void VirtualDesktop::paintBackground()
{
    const XConnection &screen = *m_connection;
    const quint32 black = screen.screen().black_pixel;
    xcb_change_window_attributes(screen.raw(), screen.root(), XCB_CW_BACK_PIXEL, &black);
    xcb_clear_area(screen.raw(), 0, screen.root(), 0, 0, 0, 0);
    m_connection->sync();
}

bool VirtualDesktop::setKeyboardLayouts(const QString &layouts)
{
    // Only with evdev's numbers is key code 133 the Super key.
    const QString options = u"-rules evdev -model pc105 -option grp:menu_toggle -layout "_s;
    return run(u"setxkbmap"_s, (options + layouts).split(u' '));
}

QString VirtualDesktop::prepare(const Options &options)
{
    // The server chooses its number itself ("-displayfd"), so that no other one can take it meanwhile.
    QStringList arguments =
        u"-displayfd 1 -noreset -nolisten tcp -novtswitch -sharevts -config"_s.split(u' ');
    arguments << QStringLiteral(CORVANE_TEST_SERVER) << u"-logfile"_s
              << folder() + u"/server.log"_s;
    for (const QString &extension : options.without)
        arguments << u"-extension"_s << extension;
    // Past Debian's wrapper, which lets only a console's user start a server.
    const QString direct = u"/usr/lib/xorg/Xorg"_s;
    m_server =
        launch(QFile::exists(direct) ? direct : u"Xorg"_s, arguments, ChildProcess::Channel::pipes);
    const auto number = m_server->readLine(Milliseconds{20000});
    if (!number)
        return u"the X server did not start"_s;
    setVariable(displayVariable, u':' + QString::fromLatin1(number->trimmed()));
    m_connection = std::make_unique<XConnection>(displayName());
    if (!m_connection->isValid())
        return u"the X server takes no connection"_s;
    if (const QString error = startBus(); !error.isEmpty())
        return error;
    if (!setKeyboardLayouts(u"us"_s))
        return u"setxkbmap failed"_s;
    m_displays = std::make_unique<DisplayArranger>(*this, *m_connection);
    m_hand = std::make_unique<X11Hand>(*m_connection, *m_displays);
    m_keys = std::make_unique<KeyPresser>(*m_connection);
    if (!options.without.contains(u"RANDR"_s) && !m_displays->arrange(options.displays))
        return u"the X server did not take the displays"_s;
    return {};
}

} // namespace corvane::desktop
