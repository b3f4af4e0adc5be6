#include "DisplayArranger.h"

#include "WindowProbe.h"

#include <algorithm>
#include <xcb/randr.h>

namespace corvane::desktop {

using namespace Qt::StringLiterals;

namespace {

bool isPlugged(const Rect &display)
{
    return display.width > 0 && display.height > 0;
}

QString outputName(qsizetype index)
{
    return u"DUMMY%1"_s.arg(index);
}

QList<Rect> plugged(const QList<Rect> &displays)
{
    QList<Rect> result;
    std::ranges::copy_if(displays, std::back_inserter(result), isPlugged);
    return result;
}

// Nothing but the descriptor with the product's name.
QByteArray edidNaming(const QByteArray &name)
{
    QByteArray edid(128, '\0');
    return edid.replace(
        54, 18, QByteArray("\0\0\0\xFC\0", 5) + (name + '\n').leftJustified(13, ' '));
}

} // namespace

DisplayArranger::DisplayArranger(
    DisplayServer::Kind kind, XConnection &connection, QProcessEnvironment environment)
    : m_kind(kind), m_connection(connection), m_environment(std::move(environment))
{
}

bool DisplayArranger::arrange(const QList<Rect> &displays)
{
    m_outputs = std::max(m_outputs, displays.size());
    m_displays = displays;
    // Some window managers answer a plugged or unplugged output with an arrangement of their own, so
    // ours is made again until it stays.
    const bool stays = waitUntil([&] {
        m_kind == DisplayServer::Kind::hotplug ? arrangeOutputs() : arrangeMonitors();
        return settled([this] { return serverHasFollowed(); });
    });
    // Not every window manager publishes the new size; a silent one only costs this wait.
    constexpr Milliseconds grace{1000};
    static_cast<void>(waitUntil([this] { return windowManagerHasFollowed(); }, grace));
    return stays;
}

bool DisplayArranger::unplug(int index)
{
    QList<Rect> displays = m_displays;
    displays[index] = {};
    return arrange(displays);
}

bool DisplayArranger::resize(int index, Size size)
{
    QList<Rect> displays = m_displays;
    displays[index].width = size.width;
    displays[index].height = size.height;
    return arrange(displays);
}

bool DisplayArranger::move(int index, Point origin)
{
    QList<Rect> displays = m_displays;
    displays[index].x = origin.x;
    displays[index].y = origin.y;
    return arrange(displays);
}

void DisplayArranger::setMonitorName(int index, const QByteArray &name)
{
    xcb_connection_t *raw = m_connection.raw();
    const auto cookie = xcb_randr_get_screen_resources_current(raw, m_connection.root());
    const Reply<xcb_randr_get_screen_resources_current_reply_t> resources(
        xcb_randr_get_screen_resources_current_reply(raw, cookie, nullptr));
    if (!resources)
        return;
    const xcb_randr_output_t output =
        xcb_randr_get_screen_resources_current_outputs(resources.get())[index];
    const xcb_atom_t edid = m_connection.atom("EDID");
    if (name.isEmpty()) {
        xcb_randr_delete_output_property(raw, output, edid);
    } else {
        const QByteArray block = edidNaming(name);
        xcb_randr_change_output_property(raw, output, edid, XCB_ATOM_INTEGER, 8,
            XCB_PROP_MODE_REPLACE, static_cast<quint32>(block.size()), block.constData());
    }
    m_connection.sync();
}

void DisplayArranger::run(const QStringList &arguments)
{
    ChildProcess program({u"xrandr"_s, arguments, m_environment, {}});
    static_cast<void>(program.waitForExit());
}

void DisplayArranger::arrangeOutputs()
{
    QStringList arguments;
    for (qsizetype index = 0; index < m_outputs; ++index) {
        const Rect display = m_displays.value(index);
        arguments << u"--output"_s << outputName(index);
        if (!isPlugged(display)) {
            arguments << u"--off"_s;
            continue;
        }
        arguments << u"--mode"_s << mode(outputName(index), display.size()) << u"--pos"_s
                  << u"%1x%2"_s.arg(display.x).arg(display.y);
        if (index == 0)
            arguments << u"--primary"_s;
    }
    run(arguments);
    // Only a look at the hardware makes the driver report what is connected now; toolkits take its
    // word for it.
    xcb_connection_t *raw = m_connection.raw();
    const auto cookie = xcb_randr_get_screen_resources(raw, m_connection.root());
    const Reply<xcb_randr_get_screen_resources_reply_t> resources(
        xcb_randr_get_screen_resources_reply(raw, cookie, nullptr));
}

void DisplayArranger::arrangeMonitors()
{
    for (qsizetype index = 0; index < m_outputs; ++index) {
        const Rect display = m_displays.value(index);
        run({u"--delmonitor"_s, outputName(index)});
        if (!isPlugged(display))
            continue;
        const QString shape = u"%1/300x%2/200+%3+%4"_s.arg(display.width)
                                  .arg(display.height)
                                  .arg(display.x)
                                  .arg(display.y);
        const QString output = index == 0 ? u"screen"_s : u"none"_s;
        run({u"--setmonitor"_s, outputName(index), shape, output});
    }
}

QString DisplayArranger::mode(const QString &output, Size size)
{
    const int width = static_cast<int>(size.width);
    const int height = static_cast<int>(size.height);
    const QString name = u"desk-%1x%2"_s.arg(width).arg(height);
    if (!m_modes.contains(name)) {
        const double megahertz = (width + 160) * (height + 40) * 30.0 / 1e6;
        QStringList timing{QString::number(megahertz, 'f', 2)};
        for (const int value : {width, width + 48, width + 80, width + 160})
            timing << QString::number(value);
        for (const int value : {height, height + 3, height + 8, height + 40})
            timing << QString::number(value);
        run(QStringList{u"--newmode"_s, name} + timing);
        m_modes.insert(name);
    }
    if (const QString pair = output + u' ' + name; !m_modes.contains(pair)) {
        run({u"--addmode"_s, output, name});
        m_modes.insert(pair);
    }
    return name;
}

bool DisplayArranger::serverHasFollowed()
{
    const auto byPlace = [](const Rect &a, const Rect &b) {
        return std::pair(a.x, a.y) < std::pair(b.x, b.y);
    };
    QList<Rect> expected = plugged(m_displays);
    QList<Rect> monitors = WindowProbe(m_connection).monitors();
    std::ranges::sort(expected, byPlace);
    std::ranges::sort(monitors, byPlace);
    return monitors == expected;
}

bool DisplayArranger::windowManagerHasFollowed()
{
    WindowProbe probe(m_connection);
    const QList<quint32> desk = m_connection.numbers(m_connection.root(), "_NET_DESKTOP_GEOMETRY");
    if (probe.windowManagerName().isEmpty() || desk.size() != 2)
        return true;
    const Rect root = probe.clientGeometry(m_connection.root()).value_or(Rect());
    return desk[0] == root.width && desk[1] == root.height;
}

} // namespace corvane::desktop
