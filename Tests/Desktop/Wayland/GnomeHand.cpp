#include "GnomeHand.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusObjectPath>

#include <linux/input-event-codes.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

const QString shellName = u"org.gnome.Shell"_s;
const QString shellPath = u"/org/gnome/Shell"_s;
const QString remote = u"org.gnome.Mutter.RemoteDesktop"_s;
const QString remoteSession = u"org.gnome.Mutter.RemoteDesktop.Session"_s;

// What versions call differently, and what all expressions use.
constexpr auto prelude = R"(
const {Meta, Clutter, St} = imports.gi;
const windows = () => global.display.sort_windows_by_stacking(
    global.get_window_actors().map(actor => actor.meta_window)
        .filter(w => !w.is_override_redirect() && w.get_frame_rect().width > 0));
const find = number => windows().find(w => w.get_id() === number);
const flags = w => w.get_maximized ? w.get_maximized()
    : (w.maximized_horizontally ? 1 : 0) | (w.maximized_vertically ? 2 : 0);
const maximize = w => w.set_maximize_flags ? w.set_maximize_flags(3) : w.maximize(3);
const unmaximize = w => w.set_unmaximize_flags ? w.unmaximize() : w.unmaximize(3);
const workspaces = global.workspace_manager;
const rect = r => [r.x, r.y, r.width, r.height];
const call = (method, parameters, then) => imports.gi.Gio.DBus.session.call(
    'org.gnome.Mutter.DisplayConfig', '/org/gnome/Mutter/DisplayConfig',
    'org.gnome.Mutter.DisplayConfig', method, parameters, null, 0, -1, null,
    (bus, result) => then(bus.call_finish(result).recursiveUnpack()));
// [[index, x, y, scale]...]: all others are unplugged.
const configure = goal => call('GetCurrentState', null, ([serial, monitors]) => {
    const logical = goal.map(([index, x, y, scale], i) => [x, y, scale, 0, i === 0,
        [[monitors[index][0][0], monitors[index][1][0][0], {}]]]);
    call('ApplyMonitorsConfig', new imports.gi.GLib.Variant('(uua(iiduba(ssa{sv}))a{sv})',
        [serial, 1, logical, {}]), () => undefined);
});
const main = imports.ui.main;
const layout = main.layoutManager;
const addPanel = (edge, thickness) => {
    const {x, y, width, height} = layout.primaryMonitor;
    const isLevel = edge === 'top' || edge === 'bottom';
    const panel = new St.Widget({style_class: 'tests-panel', reactive: true,
        x: edge === 'right' ? x + width - thickness : x,
        y: edge === 'bottom' ? y + height - thickness : y,
        width: isLevel ? width : thickness, height: isLevel ? thickness : height});
    layout.addChrome(panel, {affectsStruts: true, trackFullscreen: false});
};
const removePanels = () => layout.uiGroup.get_children()
    .filter(actor => actor.style_class === 'tests-panel')
    .forEach(actor => { layout.removeChrome(actor); actor.destroy(); });
)";

constexpr auto listing = R"(windows().map(w => ({
    number: w.get_id(), pid: w.get_pid(), title: w.get_title(), application: w.get_wm_class(),
    frame: rect(w.get_frame_rect()), active: w.has_focus(), fullScreen: w.is_fullscreen(),
    maximized: flags(w) === 3, minimized: w.minimized, tiled: flags(w) === 2,
    here: w.located_on_workspace(workspaces.get_active_workspace()) })))";

Rect rectOf(const QJsonValue &rect)
{
    return {rect[0].toDouble(), rect[1].toDouble(), rect[2].toDouble(), rect[3].toDouble()};
}

} // namespace

GnomeShell::GnomeShell(const PrivateSession &session)
    : m_name(session.folder() + u"/shell"_s)
    , m_bus(QDBusConnection::connectToBus(
          session.environment().value(u"DBUS_SESSION_BUS_ADDRESS"_s), m_name))
{
}

GnomeShell::~GnomeShell()
{
    QDBusConnection::disconnectFromBus(m_name);
}

std::optional<QJsonValue> GnomeShell::evaluate(const QString &expression)
{
    const QString script =
        u"(() => { %1 return [%2]; })()"_s.arg(QLatin1StringView(prelude), expression);
    const QVariantList answer = call(shellName, shellPath, shellName, u"Eval"_s, {script});
    if (!answer.value(0).toBool())
        return std::nullopt;
    return QJsonDocument::fromJson(answer.value(1).toString().toUtf8()).array().at(0);
}

QVariantList GnomeShell::call(const QString &service, const QString &path, const QString &interface,
    const QString &method, const QVariantList &arguments, Wait wait)
{
    auto message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    if (wait == Wait::no) {
        m_bus.send(message);
        return {};
    }
    const QDBusMessage answer = m_bus.call(message);
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
}

bool GnomeHand::isThere()
{
    return m_shell
        .evaluate(u"!layout._startingUp && (main.overview.hide(), !main.overview.visible)"_s)
        .value_or(QJsonValue())
        .toBool();
}

void GnomeHand::hideBar()
{
    m_shell.evaluate(u"(layout._untrackActor(layout.panelBox), layout.panelBox.hide(),"
                     " layout._queueUpdateRegions())"_s);
}

QString GnomeHand::variable(const QString &name)
{
    return m_shell.evaluate(u"imports.gi.GLib.getenv('%1')"_s.arg(name))
        .value_or(QJsonValue())
        .toString();
}

QList<SeenWindow> GnomeHand::windows()
{
    QList<SeenWindow> windows;
    for (const QJsonValue &each :
        m_shell.evaluate(QString::fromLatin1(listing)).value_or(QJsonValue()).toArray()) {
        windows << SeenWindow{.number = static_cast<quint32>(each[u"number"].toInteger()),
            .pid = each[u"pid"].toInt(),
            .title = each[u"title"].toString(),
            .application = each[u"application"].toString(),
            .frame = rectOf(each[u"frame"]),
            .isActive = each[u"active"].toBool(),
            .isFullScreen = each[u"fullScreen"].toBool(),
            .isMaximized = each[u"maximized"].toBool(),
            .isMinimized = each[u"minimized"].toBool(),
            .isTiled = each[u"tiled"].toBool(),
            .isHere = each[u"here"].toBool()};
    }
    return windows;
}

void GnomeHand::activate(quint32 window)
{
    change(window, u"w.activate(global.display.get_current_time_roundtrip())"_s);
}

void GnomeHand::close(quint32 window)
{
    change(window, u"w.delete(global.display.get_current_time_roundtrip())"_s);
}

void GnomeHand::setMinimized(quint32 window, bool isMinimized)
{
    change(window, isMinimized ? u"w.minimize()"_s : u"w.unminimize()"_s);
}

void GnomeHand::setMaximized(quint32 window, bool isMaximized)
{
    change(window, isMaximized ? u"maximize(w)"_s : u"unmaximize(w)"_s);
}

void GnomeHand::setFullScreen(quint32 window, bool isFullScreen)
{
    change(window, isFullScreen ? u"w.make_fullscreen()"_s : u"w.unmake_fullscreen()"_s);
}

void GnomeHand::tile(quint32 window)
{
    activate(window);
    if (waitUntil([&] { return activeWindow() == window; }))
        m_keys->press({KeyStroke::super, Key::left});
}

void GnomeHand::moveElsewhere(quint32 window)
{
    change(window,
        u"workspaces.append_new_workspace(false, 0), w.change_workspace_by_index(1, false)"_s);
}

void GnomeHand::place(quint32 window, const Rect &frame)
{
    const QString place = u"%1, %2"_s.arg(frame.x).arg(frame.y);
    change(window,
        u"w.move_frame(true, %1), w.move_resize_frame(true, %1, %2, %3)"_s.arg(place)
            .arg(frame.width)
            .arg(frame.height));
}

QList<Rect> GnomeHand::displays()
{
    QList<Rect> all;
    const auto told =
        m_shell.evaluate(u"Array.from({length: global.display.get_n_monitors()},"
                         " (_, i) => rect(global.display.get_monitor_geometry(i)))"_s);
    for (const QJsonValue &each : told.value_or(QJsonValue()).toArray())
        all << rectOf(each);
    return all;
}

bool GnomeHand::arrange(const QList<Rect> &displays)
{
    QList<Monitor> monitors;
    for (qsizetype index = 0; index < displays.size(); ++index) {
        if (displays[index].width > 0)
            monitors << Monitor{index, displays[index].origin()};
    }
    QList<Rect> plugged = displays;
    plugged.removeIf([](const Rect &display) { return display.width <= 0; });
    return configure(monitors) && waitUntil([&] { return this->displays() == plugged; });
}

bool GnomeHand::setScale(int display, double scale)
{
    QList<Monitor> monitors;
    const QList<Rect> all = displays();
    for (qsizetype index = 0; index < all.size(); ++index)
        monitors << Monitor{index, all[index].origin(), index == display ? scale : 1};
    return configure(monitors);
}

bool GnomeHand::configure(const QList<Monitor> &monitors)
{
    QJsonArray goal;
    for (const auto &[index, origin, scale] : monitors)
        goal << QJsonArray{index, origin.x, origin.y, scale};
    return m_shell
        .evaluate(u"configure(%1)"_s.arg(
            QString::fromUtf8(QJsonDocument(goal).toJson(QJsonDocument::Compact))))
        .has_value();
}

void GnomeHand::addPanel(const QByteArray &edge, int thickness)
{
    m_shell.evaluate(u"addPanel('%1', %2)"_s.arg(QString::fromLatin1(edge)).arg(thickness));
}

void GnomeHand::removePanels()
{
    m_shell.evaluate(u"removePanels()"_s);
}

void GnomeHand::change(quint32 window, const QString &statements)
{
    m_shell.evaluate(u"(w => w && (%2, 1))(find(%1))"_s.arg(window).arg(statements));
}

expected<std::unique_ptr<WaylandKeyPresser>, QString> RemoteDevices::plugIn(
    const QString &displayName, GnomeShell &shell)
{
    const QString session =
        shell.call(remote, u"/org/gnome/Mutter/RemoteDesktop"_s, remote, u"CreateSession"_s)
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    if (session.isEmpty())
        return unexpected<QString>(u"GNOME Shell lets nobody press keys"_s);
    auto connection = std::make_unique<WaylandConnection>(displayName);
    if (!connection->isValid())
        return unexpected<QString>(u"the compositor takes no connection"_s);
    shell.call(remote, session, remoteSession, u"Start"_s);
    return std::unique_ptr<WaylandKeyPresser>(
        new RemoteDevices(std::move(connection), shell, session));
}

void RemoteDevices::key(Key key, bool down)
{
    notify(u"NotifyKeyboardKeycode"_s, {static_cast<uint>(key), down});
}

/// From the corner, beyond which it can't be.
void RemoteDevices::moveTo(Point point)
{
    constexpr double far = -100'000;
    notify(u"NotifyPointerMotionRelative"_s, {far, far});
    notify(u"NotifyPointerMotionRelative"_s, {point.x, point.y});
    sync();
}

void RemoteDevices::button(Button button, bool down)
{
    notify(u"NotifyPointerButton"_s, {button == Button::left ? BTN_LEFT : BTN_RIGHT, down});
    sync();
}

void RemoteDevices::sync()
{
    m_shell.evaluate(u"1"_s);
    WaylandKeyPresser::sync();
}

void RemoteDevices::notify(const QString &method, const QVariantList &arguments)
{
    m_shell.call(remote, m_session, remoteSession, method, arguments, GnomeShell::Wait::no);
}

} // namespace corvane::desktop
