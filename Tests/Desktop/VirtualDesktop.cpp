#include "VirtualDesktop.h"

namespace corvane::desktop {

using namespace Qt::StringLiterals;

expected<std::unique_ptr<VirtualDesktop>, QString> VirtualDesktop::start(const Options &options)
{
    std::unique_ptr<VirtualDesktop> desktop(new VirtualDesktop);
    QString error = desktop->startServer(options.without);
    if (error.isEmpty())
        error = desktop->prepare(options);
    if (!error.isEmpty())
        return unexpected<QString>(u"%1:\n%2"_s.arg(error, desktop->logs()));
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

QString VirtualDesktop::startServer(const QStringList &withoutExtensions)
{
    // The server chooses its number itself ("-displayfd"), so that no other one can take it meanwhile.
    QStringList arguments{u"-displayfd"_s, u"1"_s, u"-noreset"_s, u"-nolisten"_s, u"tcp"_s,
        u"-novtswitch"_s, u"-sharevts"_s, u"-config"_s, QStringLiteral(CORVANE_TEST_SERVER),
        u"-logfile"_s, folder() + u"/server.log"_s};
    for (const QString &extension : withoutExtensions)
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
    return m_connection->isValid() ? QString() : u"the X server takes no connection"_s;
}

QString VirtualDesktop::prepare(const Options &options)
{
    if (const QString error = startBus(); !error.isEmpty())
        return error;
    if (!setKeyboardLayouts(u"us"_s))
        return u"setxkbmap failed"_s;
    m_displays = std::make_unique<DisplayArranger>(*m_connection);
    if (!options.without.contains(u"RANDR"_s) && !m_displays->arrange(options.displays))
        return u"the X server did not take the displays"_s;
    return {};
}

} // namespace corvane::desktop
