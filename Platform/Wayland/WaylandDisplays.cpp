#include "WaylandDisplays.h"

#include "Placer.h"

#include <algorithm>

namespace corvane::wayland {

using namespace std::chrono_literals;

namespace {

/// The same for a connector each time that something is plugged in there.
quint32 numberOf(const QString &connector)
{
    quint32 hash = 2166136261; // FNV-1a
    for (const char byte : connector.toUtf8())
        hash = (hash ^ static_cast<unsigned char>(byte)) * 16777619;
    return hash;
}

} // namespace

WaylandDisplays::WaylandDisplays(
    Outputs &outputs, Connection &connection, ToplevelRegistry &registry)
    : m_outputs(outputs), m_connection(connection), m_registry(registry)
{
    m_burst.setSingleShot(true);
    m_burst.setInterval(100ms);
    connect(&m_burst, &QTimer::timeout, this, [this] {
        if (const auto now = all(); std::exchange(m_announced, now) != now)
            Q_EMIT changed();
    });
    const auto announceSoon = [this] { m_burst.start(); };
    connect(&outputs, &Outputs::changed, this, announceSoon);
    connect(&registry.compositor(), &Compositor::workAreasChanged, this, announceSoon);
    connect(&registry.compositor(), &Compositor::presenceChanged, this, announceSoon);
    m_announced = all();
}

QList<ScreenInfo> WaylandDisplays::all()
{
    m_connection.drain();
    if (const auto desk = m_registry.desk(Compositor::Scope::focused))
        m_workAreas = desk->workAreas;
    QList<ScreenInfo> screens;
    for (const OutputInfo &output : m_outputs.all()) {
        const auto area = std::ranges::find_if(
            m_workAreas, [&](const WorkArea &each) { return isSame(each.output, output.frame); });
        screens << ScreenInfo{output.frame,
            area == m_workAreas.end() ? output.frame : area->visible, numberOf(output.name),
            output.model.isEmpty() ? output.name : output.model};
    }
    // What is being plugged in or out may have been told by one of the two ways only.
    if (screens.isEmpty()) {
        for (const WorkArea &area : std::as_const(m_workAreas))
            screens << ScreenInfo{area.output, area.visible, 0, QStringLiteral("Wayland")};
    }
    return screens;
}

} // namespace corvane::wayland
