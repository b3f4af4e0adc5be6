#include "WaylandDesktop.h"

#include "GnomeHand.h"
#include "KWinHand.h"
#include "SwayHand.h"

#include <QtCore/QStandardPaths>

#include <unistd.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

// sway refuses to run as root, so for root it runs as nobody. What root starts can use its sockets.
constexpr uid_t nobody = 65534;

bool isRoot()
{
    return ::geteuid() == 0;
}

bool write(const QString &path, const QString &text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0;
}

Size boundsOf(const QList<Rect> &displays)
{
    Size size;
    for (const Rect &each : displays)
        size = {std::max(size.width, each.maxX()), std::max(size.height, each.maxY())};
    return size;
}

} // namespace

expected<std::unique_ptr<WaylandDesktop>, QString> WaylandDesktop::start(const Options &options)
{
    std::unique_ptr<WaylandDesktop> desktop(new WaylandDesktop(options));
    if (const QString error = desktop->prepare(); !error.isEmpty())
        return unexpected<QString>(u"%1:\n%2"_s.arg(error, desktop->logs()));
    return desktop;
}

QString WaylandDesktop::prepare()
{
    for (const auto &[name, value] :
        std::initializer_list<std::pair<QString, QString>>{{u"XDG_SESSION_TYPE"_s, u"wayland"_s},
            {u"QT_QPA_PLATFORM"_s, u"wayland"_s}, {u"GDK_BACKEND"_s, u"wayland"_s}})
        setVariable(name, value);
    if (!m_options.home.isEmpty())
        addToHome(m_options.home);
    if (const QString error = startBus(); !error.isEmpty())
        return error;
    return startCompositor();
}

QString WaylandDesktop::restart()
{
    m_keys.reset();
    m_hand.reset();
    m_compositor->kill();
    for (const QString &left :
        {socketOf(u"sway"_s), variablesOf(folderOfSway(u"sway"_s)), variablesOf(folder())})
        QFile::remove(left);
    return startCompositor();
}

QString WaylandDesktop::startCompositor()
{
    const QString error = isSway() ? startSway() : isGnome() ? startGnome() : startKWin();
    if (!error.isEmpty())
        return error;
    if (!m_hand->arrange(m_options.displays))
        return u"the displays did not come"_s;
    return plugInKeys();
}

QString WaylandDesktop::plugInKeys()
{
    const QString display = environment().value(u"WAYLAND_DISPLAY"_s);
    auto plugged = isGnome()
        ? RemoteDevices::plugIn(display, static_cast<GnomeHand &>(*m_hand).shell())
        : WaylandKeyPresser::plugIn(display, [this] { return boundsOf(m_hand->displays()); });
    if (!plugged)
        return plugged.error();
    m_keys = std::move(*plugged);
    if (isGnome())
        static_cast<GnomeHand &>(*m_hand).useKeys(*m_keys);
    return {};
}

QString WaylandDesktop::variablesOf(const QString &folder)
{
    return folder + u"/variables"_s;
}

QString WaylandDesktop::folderOfSway(const QString &name) const
{
    return u"%1/%2"_s.arg(folder(), name);
}

QString WaylandDesktop::configurationOfSway() const
{
    const Rect &first = m_options.displays.first();
    return u"xwayland %1\noutput HEADLESS-1 mode %2x%3 position %4 %5\n"
           "for_window [app_id=\".*\"] floating enable\nfor_window [class=\".*\"] floating enable\n"
           "focus_on_window_activation smart\n%6\n"_s
               .arg(m_options.hasXwayland ? u"enable"_s : u"disable"_s)
               .arg(first.width)
               .arg(first.height)
               .arg(first.x)
               .arg(first.y)
               .arg(m_options.configuration);
}

std::unique_ptr<ChildProcess> WaylandDesktop::launchSway(const QString &name,
    const QString &configuration, const QList<std::pair<QString, QString>> &variables)
{
    const QString own = folderOfSway(name);
    const QString file = own + u"/config"_s;
    QDir().mkpath(own);
    QFile::setPermissions(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    if (!write(file, configuration))
        return nullptr;
    QStringList arguments{u"-c"_s, file};
    if (isRoot()) {
        QFile::setPermissions(folder(),
            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ExeGroup
                | QFile::ExeOther);
        for (const QString &path : {own, file})
            static_cast<void>(!::chown(path.toLocal8Bit().constData(), nobody, nobody));
        arguments = QStringList{u"--reuid=%1"_s.arg(nobody), u"--regid=%1"_s.arg(nobody),
                        u"--clear-groups"_s, u"--pdeathsig"_s, u"KILL"_s, u"sway"_s}
            + arguments;
    }
    ChildProcess::Command command = this->command(isRoot() ? u"setpriv"_s : u"sway"_s, arguments);
    command.logPath = own + u".log"_s;
    command.environment.remove(u"DBUS_SESSION_BUS_ADDRESS"_s); // another user's
    for (const auto &[variable, value] : variables)
        command.environment.insert(variable, value);
    for (const auto &[variable, value] : std::initializer_list<std::pair<QString, QString>>{
             {u"HOME"_s, own}, {u"XDG_CONFIG_HOME"_s, own}, {u"XDG_RUNTIME_DIR"_s, own},
             {u"SWAYSOCK"_s, socketOf(name)}, {u"WLR_RENDERER"_s, u"pixman"_s},
             {u"WLR_LIBINPUT_NO_DEVICES"_s, u"1"_s}, {u"WLR_HEADLESS_OUTPUTS"_s, u"1"_s}})
        command.environment.insert(variable, value);
    auto process = std::make_unique<ChildProcess>(command);
    // A moment after the first answer the displays are still without an area.
    const auto isReady = [&] {
        const auto workspaces = SwayIpc(socketOf(name)).ask(SwayIpc::Message::workspaces).array();
        return !process->isRunning() || workspaces.first()[u"rect"][u"width"].toInt() > 0;
    };
    const bool isUp = waitUntil(isReady, Milliseconds{30000}) && process->isRunning();
    return isUp ? std::move(process) : nullptr;
}

QString WaylandDesktop::startSway()
{
    const QString own = u"sway"_s;
    const QString other = u"sway-outer"_s;
    if (!m_outer)
        m_outer = launchSway(other,
            u"xwayland disable\noutput HEADLESS-1 mode 3840x2400 position 0 0\n"
            "for_window [app_id=\"wlroots\"] floating enable, border none\n"_s,
            {{u"WLR_BACKENDS"_s, u"headless"_s}});
    if (!m_outer)
        return u"the outer sway did not start"_s;
    // The first back end is the one that further displays come from.
    m_compositor = launchSway(own, configurationOfSway(),
        {{u"WLR_BACKENDS"_s, u"wayland,headless"_s}, {u"WLR_WL_OUTPUTS"_s, u"0"_s},
            {u"WAYLAND_DISPLAY"_s, folderOfSway(other) + u"/wayland-1"_s}});
    if (!m_compositor)
        return u"sway did not start"_s;
    setVariable(u"WAYLAND_DISPLAY"_s, folderOfSway(own) + u"/wayland-1"_s);
    setVariable(u"SWAYSOCK"_s, socketOf(own));
    setVariable(u"XDG_CURRENT_DESKTOP"_s, own);
    m_hand = std::make_unique<SwayHand>(socketOf(own), socketOf(other));
    if (m_options.hasXwayland) {
        const QString variables = variablesOf(folderOfSway(own));
        // Root's clients are another user's to Xwayland.
        SwayIpc(socketOf(own))
            .command(
                u"exec xhost +SI:localuser:#%1 && env > %2.part && mv %2.part %2"_s.arg(::geteuid())
                    .arg(variables));
        adoptXwayland(variables);
    }
    return {};
}

QString WaylandDesktop::startKWin()
{
    // The packaged program has a capability, which not every machine can give it.
    const QString program = folder() + u"/kwin_wayland"_s;
    QFile::copy(QStandardPaths::findExecutable(u"kwin_wayland"_s), program);
    for (const auto &[name, value] :
        std::initializer_list<std::pair<QString, QString>>{{u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s},
            {u"KDE_FULL_SESSION"_s, u"true"_s}, {u"KDE_SESSION_VERSION"_s, u"5"_s}})
        setVariable(name, value);
    const QString socket = environment().value(u"XDG_RUNTIME_DIR"_s) + u"/wayland-1"_s;
    const QString variables = variablesOf(folder());
    const Rect &first = m_options.displays.first();
    QStringList arguments =
        u"--virtual --output-count 2 --no-lockscreen --socket wayland-1"_s.split(u' ');
    arguments << u"--width"_s << QString::number(first.width) << u"--height"_s
              << QString::number(first.height);
    if (m_options.hasXwayland)
        arguments << u"--xwayland"_s << u"sh -c 'env > %1.part && mv %1.part %1'"_s.arg(variables);
    ChildProcess::Command command = this->command(program, arguments);
    command.environment.insert(u"KWIN_COMPOSE"_s, m_options.canBePictured ? u"O2"_s : u"Q"_s);
    command.environment.insert(u"KWIN_WAYLAND_NO_PERMISSION_CHECKS"_s, u"1"_s);
    command.environment.insert(u"KWIN_SCREENSHOT_NO_PERMISSION_CHECKS"_s, u"1"_s);
    // Without a graphics processor KWin 6.3 would end in Qt's code for the look of Plasma.
    command.environment.remove(u"KDE_FULL_SESSION"_s);
    m_compositor = std::make_unique<ChildProcess>(command);
    setVariable(u"WAYLAND_DISPLAY"_s, socket);
    auto hand = std::make_unique<KWinHand>(*this);
    const auto isReady = [&] {
        return !m_compositor->isRunning()
            || (QFile::exists(socket) && hand->isThere() && hand->displays().size() == 2);
    };
    if (!waitUntil(isReady, Milliseconds{30000}) || !m_compositor->isRunning())
        return u"KWin did not start"_s;
    m_hand = std::move(hand);
    if (m_options.hasXwayland)
        adoptXwayland(variables);
    return {};
}

QString WaylandDesktop::installExtension()
{
    const auto asked = launch(u"gnome-shell"_s, {u"--version"_s}, ChildProcess::Channel::pipes);
    const QString version = QString::fromUtf8(asked->readLine().value_or(QByteArray()));
    const int major = version.section(u' ', -1).section(u'.', 0, 0).toInt();
    const QString own = dataFolder() + u"/gnome-shell/extensions/corvane@corvane.app/"_s;
    QDir().mkpath(own);
    for (const QString &name : {u"extension.js"_s, u"metadata.json"_s}) {
        QFile::remove(own + name);
        if (!QFile::copy(u"%1/%2/corvane@corvane.app/%3"_s.arg(QStringLiteral(CORVANE_EXTENSION),
                             major < 45 ? u"43"_s : u"45"_s, name),
                own + name))
            return u"there is no extension for \"%1\""_s.arg(version.trimmed());
    }
    return {};
}

QString WaylandDesktop::startGnome()
{
    const QString settings = configFolder() + u"/glib-2.0/settings"_s;
    QDir().mkpath(settings);
    const QString runtime = environment().value(u"XDG_RUNTIME_DIR"_s);
    if (const QString error = installExtension(); !error.isEmpty())
        return error;
    if (!write(settings + u"/keyfile"_s,
            u"[org/gnome/shell]\nenabled-extensions=['corvane@corvane.app']\n"
            "welcome-dialog-last-shown-version='99'\n"
            "[org/gnome/mutter]\ndynamic-workspaces=false\n"
            "experimental-features=['scale-monitor-framebuffer']\n"
            "[org/gnome/desktop/interface]\nenable-animations=false\nenable-hot-corners=false\n"_s))
        return u"the settings could not be written"_s;
    const QString systemBus = u"unix:path=%1/system-bus"_s.arg(runtime);
    if (!m_systemBus) {
        m_systemBus = launch(u"dbus-daemon"_s,
            {u"--session"_s, u"--nofork"_s, u"--nopidfile"_s, u"--print-address=1"_s,
                u"--address="_s + systemBus},
            ChildProcess::Channel::pipes);
        std::ignore = m_systemBus->readLine();
    }
    setVariable(u"DBUS_SYSTEM_BUS_ADDRESS"_s, systemBus);
    setVariable(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    const Rect &first = m_options.displays.first();
    const QString monitor = u"%1x%2"_s.arg(first.width).arg(first.height);
    QStringList arguments{u"--headless"_s, u"--unsafe-mode"_s, u"--wayland-display"_s,
        u"wayland-1"_s, u"--virtual-monitor"_s, monitor, u"--virtual-monitor"_s, monitor};
    if (!m_options.hasXwayland)
        arguments << u"--no-x11"_s;
    const QString socket = runtime + u"/wayland-1"_s;
    m_compositor = launch(u"gnome-shell"_s, arguments);
    setVariable(u"WAYLAND_DISPLAY"_s, socket);
    auto hand = std::make_unique<GnomeHand>(*this);
    const auto isReady = [&] {
        return !m_compositor->isRunning() || (QFile::exists(socket) && hand->isThere());
    };
    if (!waitUntil(isReady, Milliseconds{30000}) || !m_compositor->isRunning())
        return u"GNOME Shell did not start"_s;
    if (!m_options.hasBar)
        hand->hideBar();
    if (m_options.hasXwayland) {
        for (const QString &name : {u"DISPLAY"_s, u"XAUTHORITY"_s})
            setVariable(name, hand->variable(name));
    }
    m_hand = std::move(hand);
    return {};
}

bool WaylandDesktop::reload(const QString &configuration)
{
    const SwayIpc ipc(socketOf(u"sway"_s));
    return write(folderOfSway(u"sway"_s) + u"/config"_s, configurationOfSway() + configuration)
        && ipc.command(u"reload"_s);
}

void WaylandDesktop::adoptXwayland(const QString &path)
{
    static_cast<void>(waitUntil([&] { return QFile::exists(path); }));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    for (const QString &line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QString name = line.section(u'=', 0, 0);
        if (name == u"DISPLAY" || name == u"XAUTHORITY")
            setVariable(name, line.section(u'=', 1));
    }
}

} // namespace corvane::desktop
