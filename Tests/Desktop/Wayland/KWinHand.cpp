#include "KWinHand.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

constexpr auto listing = R"(
const isHere = w => isSix ? w.desktops.length === 0 || w.desktops.indexOf(workspace.currentDesktop) >= 0
                          : w.desktop === -1 || w.desktop === workspace.currentDesktop;
const area = w => isSix ? workspace.clientArea(KWin.MaximizeArea, w)
                        : workspace.clientArea(KWin.MaximizeArea, w);
const fills = (g, a) => g.x === a.x && g.y === a.y && g.width === a.width && g.height === a.height;
const rect = g => [g.x, g.y, g.width, g.height];
const isPanel = w => w.dock || w.desktopWindow || w.skipTaskbar && !w.moveable && !w.fullScreen;
return JSON.stringify(list().map(w => ({
    id: String(w.internalId), pid: w.pid, title: w.caption,
    application: String(w.desktopFileName) || String(w.resourceClass),
    frame: rect(w.frameGeometry), active: w === active(), fullScreen: w.fullScreen,
    maximized: isSix ? w.maximizeMode === 3 : fills(w.frameGeometry, area(w)) && !w.fullScreen,
    minimized: w.minimized, tiled: w.tile != null, here: isHere(w), panel: isPanel(w) })));
)";

constexpr auto screens = R"(
const all = [];
const count = isSix ? workspace.screens.length : workspace.numScreens;
for (let i = 0; i < count; ++i)
    all.push(isSix ? workspace.screens[i].geometry
                   : workspace.clientArea(KWin.ScreenArea, i, workspace.currentDesktop));
return JSON.stringify(all.map(g => [g.x, g.y, g.width, g.height]));
)";

Rect rectOf(const QJsonValue &rect)
{
    return {rect[0].toDouble(), rect[1].toDouble(), rect[2].toDouble(), rect[3].toDouble()};
}

QJsonArray arrayOf(const std::optional<QString> &text)
{
    return QJsonDocument::fromJson(text.value_or(QString()).toUtf8()).array();
}

QString word(bool value)
{
    return value ? u"true"_s : u"false"_s;
}

} // namespace

QList<SeenWindow> KWinHand::windows()
{
    QList<SeenWindow> windows;
    for (const QJsonValue &each : arrayOf(m_scripts.run(QString::fromLatin1(listing)))) {
        const QString id = each[u"id"].toString();
        if (!m_ids.contains(id))
            m_ids << id;
        windows << SeenWindow{.number = static_cast<quint32>(m_ids.indexOf(id) + 1),
            .pid = each[u"pid"].toInt(),
            .title = each[u"title"].toString(),
            .application = each[u"application"].toString(),
            .frame = rectOf(each[u"frame"]),
            .isActive = each[u"active"].toBool(),
            .isFullScreen = each[u"fullScreen"].toBool(),
            .isMaximized = each[u"maximized"].toBool(),
            .isMinimized = each[u"minimized"].toBool(),
            .isTiled = each[u"tiled"].toBool(),
            .isHere = each[u"here"].toBool(),
            .isPanel = each[u"panel"].toBool()};
    }
    return windows;
}

void KWinHand::activate(quint32 window)
{
    change(window, u"activate(w)"_s);
}

void KWinHand::close(quint32 window)
{
    change(window, u"w.closeWindow()"_s);
}

void KWinHand::setMinimized(quint32 window, bool isMinimized)
{
    change(window, u"w.minimized = "_s + word(isMinimized));
}

void KWinHand::setMaximized(quint32 window, bool isMaximized)
{
    change(window, u"w.setMaximize(%1, %1)"_s.arg(word(isMaximized)));
}

void KWinHand::setFullScreen(quint32 window, bool isFullScreen)
{
    change(window, u"w.fullScreen = "_s + word(isFullScreen));
}

void KWinHand::tile(quint32 window)
{
    change(window, u"activate(w); workspace.slotWindowQuickTileLeft()"_s);
}

void KWinHand::moveElsewhere(quint32 window)
{
    change(window,
        u"if ((isSix ? workspace.desktops.length : workspace.desktops) < 2)"
        " workspace.createDesktop(1, 'Second');"
        " if (isSix) w.desktops = [workspace.desktops[1]]; else w.desktop = 2;"_s);
}

void KWinHand::place(quint32 window, const Rect &frame)
{
    change(window,
        u"w.frameGeometry = {x: %1, y: %2, width: %3, height: %4}"_s.arg(frame.x)
            .arg(frame.y)
            .arg(frame.width)
            .arg(frame.height));
}

bool KWinHand::arrange(const QList<Rect> &displays)
{
    constexpr qsizetype outputs = 2; // that the session begins with
    QStringList changes;
    for (qsizetype index = 0; index < outputs; ++index) {
        const QString output = u"output.Virtual-%1."_s.arg(index);
        if (displays.value(index).width <= 0)
            changes << output + u"disable"_s;
        else
            changes << output + u"enable"_s << output + u"scale.1"_s
                    << output + u"position.%1,%2"_s.arg(displays[index].x).arg(displays[index].y);
    }
    QList<Rect> plugged = displays;
    plugged.removeIf([](const Rect &display) { return display.width <= 0; });
    return configure(changes) && waitUntil([&] { return this->displays() == plugged; });
}

bool KWinHand::setScale(int display, double scale)
{
    return configure({u"output.Virtual-%1.scale.%2"_s.arg(display).arg(scale)});
}

QList<Rect> KWinHand::displays()
{
    QList<Rect> all;
    for (const QJsonValue &each : arrayOf(m_scripts.run(QString::fromLatin1(screens))))
        all << rectOf(each);
    return all;
}

void KWinHand::change(quint32 window, const QString &statements)
{
    const QString id = m_ids.value(static_cast<qsizetype>(window) - 1);
    m_scripts.run(u"const w = find(\"%1\"); if (w) { %2 }"_s.arg(id, statements));
}

bool KWinHand::configure(const QStringList &changes)
{
    return m_session.run(u"kscreen-doctor"_s, changes);
}

} // namespace corvane::desktop
