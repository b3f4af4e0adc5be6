#include "SwayHand.h"

#include <algorithm>

namespace corvane::desktop {

using namespace Qt::StringLiterals;
using enum SwayIpc::Message;

namespace {

Rect rectOf(const QJsonValue &rect)
{
    return {rect[u"x"].toDouble(), rect[u"y"].toDouble(), rect[u"width"].toDouble(),
        rect[u"height"].toDouble()};
}

/// Where in the tree a window is.
struct Place {
    QString workspace;
    bool isFloating = false;
};

SeenWindow seen(const QJsonObject &leaf, const Place &place)
{
    Rect frame = rectOf(leaf["rect"_L1]);
    const double title = leaf["deco_rect"_L1]["height"_L1].toDouble();
    frame = {frame.x, frame.y - title, frame.width, frame.height + title};
    const QString application = leaf["app_id"_L1].toString();
    const bool isMinimized = place.workspace == u"__i3_scratch";
    return {.number = static_cast<quint32>(leaf["id"_L1].toInt()),
        .pid = leaf["pid"_L1].toInt(),
        .title = leaf["name"_L1].toString(),
        .application = application.isEmpty() ? leaf["window_properties"_L1]["class"_L1].toString()
                                             : application,
        .frame = frame,
        .isActive = leaf["focused"_L1].toBool(),
        .isFullScreen = leaf["fullscreen_mode"_L1].toInt() != 0,
        .isMinimized = isMinimized,
        .isTiled = !place.isFloating,
        .isHere = isMinimized || leaf["visible"_L1].toBool()};
}

void collect(const QJsonObject &node, Place place, QList<SeenWindow> &windows)
{
    const QString type = node["type"_L1].toString();
    if (type == u"workspace")
        place.workspace = node["name"_L1].toString();
    if (node.contains("pid"_L1))
        windows << seen(node, place);
    for (const auto &list : {"nodes"_L1, "floating_nodes"_L1}) {
        Place inside = place;
        inside.isFloating = place.isFloating || list == "floating_nodes"_L1;
        for (const QJsonValue each : node[list].toArray())
            collect(each.toObject(), inside, windows);
    }
}

} // namespace

QList<SeenWindow> SwayHand::windows()
{
    QList<SeenWindow> windows;
    collect(m_sway.ask(tree).object(), {}, windows);
    return windows;
}

void SwayHand::place(quint32 window, const Rect &frame)
{
    command(window,
        u"floating enable, resize set %1 px %2 px, move absolute position %3 px %4 px"_s
            .arg(frame.width)
            .arg(frame.height)
            .arg(frame.x)
            .arg(frame.y));
}

bool SwayHand::arrange(const QList<Rect> &displays)
{
    for (QStringList all = outputs(); all.size() > 1;)
        unplug(all.takeLast());
    const auto isAlone = [this] { return outputs().size() == 1; };
    if (!waitUntil(isAlone))
        return false;
    const Rect &first = displays.first();
    m_sway.command(u"output %1 scale 1 mode %2x%3 position %4 %5"_s.arg(outputs().value(0))
                       .arg(first.width)
                       .arg(first.height)
                       .arg(first.x)
                       .arg(first.y));
    for (const Rect &each : displays.sliced(1))
        plug(each);
    if (!waitUntil([&] { return outputs().size() == displays.size(); }))
        return false;
    // A size that is asked for while the other sway has yet to draw an earlier one is lost.
    return waitUntil([&] {
        const QStringList names = outputs();
        for (qsizetype index = 1; index < displays.size(); ++index)
            resize(names[index], displays[index].size());
        constexpr Milliseconds grace{300};
        return waitUntil([&] { return this->displays() == displays; }, grace);
    });
}

bool SwayHand::setScale(int display, double scale)
{
    return m_sway.command(u"output %1 scale %2"_s.arg(outputs().value(display)).arg(scale));
}

QList<Rect> SwayHand::displays()
{
    const QJsonArray all = m_sway.ask(SwayIpc::Message::outputs).array();
    QList<Rect> rects;
    for (const QString &name : outputs()) {
        for (const QJsonValue &each : all) {
            if (each[u"name"] == name)
                rects << rectOf(each[u"rect"]);
        }
    }
    return rects;
}

QStringList SwayHand::outputs() const
{
    QStringList names;
    for (const QJsonValue &each : m_sway.ask(SwayIpc::Message::outputs).array()) {
        if (each[u"active"].toBool())
            names << each[u"name"].toString();
    }
    // HEADLESS-1, WL-1, WL-2 ... WL-10
    std::ranges::sort(names, {}, [](const QString &name) {
        return std::pair(name.startsWith(u"WL"), name.section(u'-', 1).toInt());
    });
    return names;
}

void SwayHand::plug(const Rect &display)
{
    const QString name = u"WL-%1"_s.arg(++m_plugged);
    m_sway.command(u"output %1 position %2 %3"_s.arg(name).arg(display.x).arg(display.y));
    m_sway.command(u"create_output"_s);
}

void SwayHand::resize(const QString &output, Size size)
{
    m_outer.command(u"[title=\"wlroots - %1$\"] resize set %2 px %3 px"_s.arg(output)
                        .arg(size.width)
                        .arg(size.height));
}

void SwayHand::unplug(const QString &output)
{
    m_outer.command(u"[title=\"wlroots - %1$\"] kill"_s.arg(output));
}

} // namespace corvane::desktop
