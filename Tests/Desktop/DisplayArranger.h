#pragma once

#include "DisplayServer.h"
#include "Rect.h"
#include "XConnection.h"

#include <QtCore/QSet>

namespace corvane::desktop {

/// Plugs, unplugs, moves and resizes the displays of a server while it runs. A display is named by its
/// place in the list: the first is primary and is the output DUMMY0.
class DisplayArranger
{
public:
    DisplayArranger(
        DisplayServer::Kind kind, XConnection &connection, QProcessEnvironment environment);

    /// Makes the displays exactly these; a rectangle without area is an unplugged output. Returns
    /// once the server lists them and a running window manager publishes the new size of the desktop,
    /// or has not done so for a second.
    [[nodiscard]] bool arrange(const QList<Rect> &displays);
    [[nodiscard]] bool unplug(int index);
    [[nodiscard]] bool resize(int index, Size size);
    [[nodiscard]] bool move(int index, Point origin);

    /// What the display tells of itself from now on; with an empty name it tells nothing again. For the
    /// program it counts when it next reads the displays.
    void setMonitorName(int index, const QByteArray &name);

    [[nodiscard]] const QList<Rect> &displays() const { return m_displays; }

private:
    void run(const QStringList &arguments);
    void arrangeOutputs();
    void arrangeMonitors();
    QString mode(const QString &output, Size size);
    bool serverHasFollowed();
    bool windowManagerHasFollowed();

    DisplayServer::Kind m_kind;
    XConnection &m_connection;
    QProcessEnvironment m_environment;
    QList<Rect> m_displays;
    qsizetype m_outputs = 0; ///< that have ever been used; a window manager may turn any of them on
    QSet<QString> m_modes; ///< "output mode" pairs, and modes alone, that the server knows
};

} // namespace corvane::desktop
