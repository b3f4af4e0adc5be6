#include "PrivateSession.h"

#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <csignal>
#include <unistd.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

static constexpr QLatin1StringView markerName{"CORVANE_DESKTOP"};

PrivateSession::PrivateSession()
    : m_folder(QDir::tempPath() + u"/corvane-desktop-XXXXXX"_s)
    , m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString runtime = folder() + u"/run"_s;
    for (const QString &path : {configFolder(), dataFolder(), runtime})
        QDir().mkpath(path);
    addToHome(QStringLiteral(CORVANE_TEST_HOME));
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    for (const auto &real : {u"WAYLAND_DISPLAY"_s, u"XAUTHORITY"_s, u"SWAYSOCK"_s, u"I3SOCK"_s,
             u"DISPLAY"_s, u"DESKTOP_SESSION"_s, u"XDG_CURRENT_DESKTOP"_s, u"SESSION_MANAGER"_s})
        m_environment.remove(real);
    const std::initializer_list<std::pair<QString, QString>> values{
        {markerName, folder()},
        {u"HOME"_s, home()},
        {u"XDG_CONFIG_HOME"_s, configFolder()},
        {u"XDG_DATA_HOME"_s, dataFolder()},
        {u"XDG_CACHE_HOME"_s, home() + u"/.cache"_s},
        {u"XDG_RUNTIME_DIR"_s, runtime},
        {u"XDG_SESSION_TYPE"_s, u"x11"_s},
        {u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=%1/bus"_s.arg(runtime)},
        {u"QT_QPA_PLATFORM"_s, u"xcb"_s},
        {u"GSETTINGS_BACKEND"_s, u"keyfile"_s},
        {u"GDK_BACKEND"_s, u"x11"_s},
        {u"NO_AT_BRIDGE"_s, u"1"_s},
        {u"LIBGL_ALWAYS_SOFTWARE"_s, u"1"_s},
        {u"KWIN_COMPOSE"_s, u"N"_s},
        {u"LC_ALL"_s, u"C.UTF-8"_s},
    };
    for (const auto &[name, value] : values)
        m_environment.insert(name, value);
}

PrivateSession::~PrivateSession()
{
    m_bus.reset();
    for (const pid_t pid : processes())
        ::kill(pid, SIGKILL);
}

QString PrivateSession::startBus()
{
    m_bus = launch(u"dbus-daemon"_s,
        {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address=1"_s,
            u"--address=%1"_s.arg(m_environment.value(u"DBUS_SESSION_BUS_ADDRESS"_s))},
        ChildProcess::Channel::pipes);
    return m_bus->readLine() ? QString() : u"the session bus did not start:\n%1"_s.arg(logs());
}

void PrivateSession::addToHome(const QString &source)
{
    QDirIterator files(source, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        const QString copy = home() + path.mid(source.size());
        QDir().mkpath(QFileInfo(copy).path());
        QFile::remove(copy);
        QFile::copy(path, copy);
        QFile::setPermissions(copy, QFile::ReadOwner | QFile::WriteOwner);
    }
}

ChildProcess::Command PrivateSession::command(
    const QString &program, const QStringList &arguments, ChildProcess::Channel channel) const
{
    const QString log = u"%1/%2.log"_s.arg(folder(), QFileInfo(program).fileName());
    return {program, arguments, m_environment, log, channel};
}

std::unique_ptr<ChildProcess> PrivateSession::launchIdle(const QString &name)
{
    const QString program = m_folder.filePath(name);
    QFile::copy(QStandardPaths::findExecutable(u"sleep"_s), program);
    return launch(program, {u"600"_s});
}

bool PrivateSession::run(const QString &program, const QStringList &arguments)
{
    return launch(program, arguments)->waitForExit() == 0;
}

QString PrivateSession::logs(qsizetype bytesEach) const
{
    QString text;
    const QStringList names = QDir(folder()).entryList({u"*.log"_s}, QDir::Files);
    for (const QString &name : names) {
        QFile file(m_folder.filePath(name));
        if (file.open(QIODevice::ReadOnly) && file.size() > 0)
            text += u"--- %1\n%2\n"_s.arg(name, QString::fromUtf8(file.readAll().right(bytesEach)));
    }
    return text;
}

// Services that the bus started are no children of ours; the variable in their environment tells
// them from everybody else's.
QList<pid_t> PrivateSession::processes() const
{
    const QByteArray marker = (markerName + u'=' + folder()).toLocal8Bit();
    QList<pid_t> pids;
    for (const QString &entry : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        QFile file(u"/proc/%1/environ"_s.arg(entry));
        const pid_t pid = entry.toInt();
        if (pid > 0 && pid != ::getpid() && file.open(QIODevice::ReadOnly)
            && file.readAll().split('\0').contains(marker))
            pids << pid;
    }
    return pids;
}

} // namespace corvane::desktop
