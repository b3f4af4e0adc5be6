#pragma once

#include "Rect.h"
#include "XConnection.h"

#include <QtCore/QMap>

#include <xcb/randr.h>

namespace corvane::desktop {

/// Plugs, unplugs, moves and resizes the displays of a server while it runs. A display is named by its
/// place in the list: the first is primary and is the output DUMMY0.
class DisplayArranger
{
public:
    explicit DisplayArranger(XConnection &connection) : m_connection(connection) { }

    /// Makes the displays exactly these; a rectangle without area is an unplugged output. Returns
    /// once the server lists them and a running window manager publishes the new size of the desktop,
    /// or has not done so for a second.
    [[nodiscard]] bool arrange(const QList<Rect> &displays);

    [[nodiscard]] const QList<Rect> &displays() const { return m_displays; }

private:
    using Resources = Reply<xcb_randr_get_screen_resources_current_reply_t>;

    void arrangeOutputs();
    [[nodiscard]] Resources readResources();
    void addMode(xcb_randr_output_t output, Size size);
    void setOutput(const Resources &resources, qsizetype index, const Rect &display);
    [[nodiscard]] bool isAsWanted(const Resources &resources, qsizetype index);
    [[nodiscard]] bool serverHasFollowed();
    [[nodiscard]] bool windowManagerHasFollowed();

    XConnection &m_connection;
    QList<Rect> m_displays;
    qsizetype m_outputs = 0; ///< that have ever been used; a window manager may turn any of them on
    QMap<std::pair<int, int>, xcb_randr_mode_t> m_modes; ///< by width and height
};

} // namespace corvane::desktop
