#pragma once

#include "PrivateSession.h"
#include "WindowProbe.h"

#include <QtCore/QSet>

#include <algorithm>
#include <xcb/randr.h>

namespace corvane::desktop {

/// Plugs, unplugs, moves and resizes the displays of a server while it runs. A display is named by its
/// place in the list: the first is primary and is the output DUMMY0.
class DisplayArranger
{
public:
    DisplayArranger(PrivateSession &session, XConnection &connection)
        : m_session(session), m_connection(connection)
    {
    }

    /// Makes the displays exactly these; a rectangle without area is an unplugged output. Returns
    /// once the server lists them and a running window manager publishes the new size of the desktop,
    /// or has not done so for a second.
    [[nodiscard]] bool arrange(const QList<Rect> &displays)
    {
        m_outputs = std::max(m_outputs, displays.size());
        m_displays = displays;
        QStringList options{QStringLiteral("--dpi"), QStringLiteral("96")};
        for (qsizetype index = 0; index < m_outputs; ++index)
            options << optionsFor(index);
        // Some window managers answer a plugged or unplugged output with an arrangement of their own, so
        // ours is made again until it stays.
        const bool stays = waitUntil([&] {
            static_cast<void>(randr(options));
            lookAtHardware();
            return settled([this] { return serverHasFollowed(); });
        });
        // Not every window manager publishes the new size; a silent one only costs this wait.
        constexpr Milliseconds grace{1000};
        static_cast<void>(waitUntil([this] { return windowManagerHasFollowed(); }, grace));
        return stays;
    }

    [[nodiscard]] const QList<Rect> &displays() const { return m_displays; }

private:
    [[nodiscard]] static bool isPlugged(const Rect &display) { return display.width > 0; }
    /// What xrandr is to be told about the output, which then has the mode.
    [[nodiscard]] QStringList optionsFor(qsizetype index)
    {
        const Rect display = m_displays.value(index);
        const QString output = QStringLiteral("DUMMY%1").arg(index);
        if (!isPlugged(display))
            return {QStringLiteral("--output"), output, QStringLiteral("--off")};
        // Apart from the names of the server's own modes.
        const QString mode = QStringLiteral("desk-%1x%2").arg(display.width).arg(display.height);
        if (!m_modes.contains(mode) && addMode(mode, display.size()))
            m_modes << mode;
        static_cast<void>(randr({QStringLiteral("--addmode"), output, mode}));
        const QString options =
            QStringLiteral("--output %1 --mode %2 --pos %3x%4").arg(output, mode);
        const QStringList primary{QStringLiteral("--primary")};
        return options.arg(display.x).arg(display.y).split(u' ')
            + (index == 0 ? primary : QStringList());
    }
    [[nodiscard]] bool addMode(const QString &name, Size size)
    {
        QStringList options{QStringLiteral("--newmode"), name};
        const auto [width, height] = size;
        const double megahertz = (width + 160) * (height + 40) * 30 / 1e6;
        for (const double each : {megahertz, width, width + 48, width + 80, width + 160, height,
                 height + 3, height + 8, height + 40})
            options << QString::number(each);
        return randr(options);
    }
    [[nodiscard]] bool randr(const QStringList &options)
    {
        return m_session.run(QStringLiteral("xrandr"), options);
    }
    /// Only this makes the driver report what is connected now; toolkits take its word for it.
    void lookAtHardware()
    {
        xcb_connection_t *raw = m_connection.raw();
        xcb_discard_reply(raw, xcb_randr_get_screen_resources(raw, m_connection.root()).sequence);
        m_connection.sync();
    }
    [[nodiscard]] bool serverHasFollowed() const
    {
        const auto reply = m_connection.reply<xcb_randr_get_monitors_reply>(
            xcb_randr_get_monitors(m_connection.raw(), m_connection.root(), true));
        if (!reply)
            return false;
        QList<Rect> seen;
        for (auto each = xcb_randr_get_monitors_monitors_iterator(reply.get()); each.rem > 0;
             xcb_randr_monitor_info_next(&each))
            seen << Rect{double(each.data->x), double(each.data->y), double(each.data->width),
                double(each.data->height)};
        QList<Rect> wanted = m_displays;
        wanted.removeIf([](const Rect &display) { return !isPlugged(display); });
        return std::ranges::is_permutation(seen, wanted);
    }
    [[nodiscard]] bool windowManagerHasFollowed() const
    {
        WindowProbe probe(m_connection);
        const QList<quint32> desk =
            m_connection.numbers(m_connection.root(), "_NET_DESKTOP_GEOMETRY");
        const Rect root = probe.clientGeometry(m_connection.root()).value_or(Rect());
        return probe.windowManagerName().isEmpty() || desk.size() != 2
            || (desk[0] == root.width && desk[1] == root.height);
    }

    PrivateSession &m_session;
    XConnection &m_connection;
    QList<Rect> m_displays;
    qsizetype m_outputs = 0; ///< that have ever been used; a window manager may turn any of them on
    QSet<QString> m_modes; ///< that the server has
};

} // namespace corvane::desktop
