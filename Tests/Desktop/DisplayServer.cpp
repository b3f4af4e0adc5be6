#include "DisplayServer.h"

#include <QtCore/QFile>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr const char *hotplugConfiguration = R"(Section "ServerFlags"
    Option "AutoAddDevices" "false"
    Option "AutoEnableDevices" "false"
    Option "AutoAddGPU" "false"
    Option "DontVTSwitch" "true"
EndSection
Section "Device"
    Identifier "device"
    Driver "dummy"
    VideoRam 256000
EndSection
Section "Monitor"
    Identifier "monitor"
    HorizSync 5-1000
    VertRefresh 5-200
EndSection
Section "Screen"
    Identifier "screen"
    Device "device"
    Monitor "monitor"
    DefaultDepth 24
    SubSection "Display"
        Depth 24
        Virtual 7680 2400
        Modes "1920x1080"
    EndSubSection
EndSection
)";

QString writeConfiguration(const QString &folder)
{
    QFile file(folder + u"/dummy.conf"_s);
    if (file.open(QIODevice::WriteOnly))
        file.write(hotplugConfiguration);
    return file.fileName();
}

// The server chooses the number itself ("-displayfd"), so that no other one can take it meanwhile.
QStringList argumentsFor(
    DisplayServer::Kind kind, const QString &folder, QSize size, const QStringList &without)
{
    QStringList common{u"-displayfd"_s, u"1"_s, u"-noreset"_s, u"-nolisten"_s, u"tcp"_s};
    for (const QString &extension : without)
        common << u"-extension"_s << extension;
    if (kind == DisplayServer::Kind::framebuffer)
        return common
            + QStringList{u"-screen"_s, u"0"_s, u"%1x%2x24"_s.arg(size.width()).arg(size.height())};
    return common
        + QStringList{u"-config"_s, writeConfiguration(folder), u"-logfile"_s,
            folder + u"/xorg.log"_s, u"-novtswitch"_s, u"-sharevts"_s};
}

QString programFor(DisplayServer::Kind kind)
{
    // Past Debian's wrapper, which lets only a console's user start a server.
    const QString direct = u"/usr/lib/xorg/Xorg"_s;
    if (kind == DisplayServer::Kind::framebuffer)
        return u"Xvfb"_s;
    return QFile::exists(direct) ? direct : u"Xorg"_s;
}

} // namespace

expected<std::unique_ptr<DisplayServer>, QString> DisplayServer::start(Kind kind,
    const QString &folder, const QProcessEnvironment &environment, QSize size,
    const QStringList &without)
{
    std::unique_ptr<DisplayServer> server(new DisplayServer(kind,
        {programFor(kind), argumentsFor(kind, folder, size, without), environment,
            folder + u"/server.log"_s, ChildProcess::Channel::pipes}));
    const auto number = server->m_process.readLine(Milliseconds{20000});
    if (!number) {
        return unexpected<QString>(u"the X server did not start: %1"_s.arg(
            QString::fromUtf8(server->m_process.log().right(1000))));
    }
    server->m_displayName = u":%1"_s.arg(QString::fromLatin1(number->trimmed()));
    return server;
}

DisplayServer::DisplayServer(Kind kind, const ChildProcess::Command &command)
    : m_kind(kind), m_process(command)
{
}

} // namespace corvane::desktop
