#pragma once

#include "WaylandClientWindow.h"

#include <QtGui/QImage>

namespace corvane::demo {

/// Pictures on the layers of a Wayland desktop, for as long as this object lives.
class Scenery
{
public:
    explicit Scenery(const QString &displayName) : m_connection(displayName) { }
    ~Scenery();
    Q_DISABLE_COPY_MOVE(Scenery)

    // Of a display by its number, in the order in which they were plugged in. False where the desktop
    // does not take the picture.
    /// Behind all windows.
    [[nodiscard]] bool showBackground(qsizetype display, const QImage &picture);
    /// Along the upper edge, where no window is to go.
    [[nodiscard]] bool showPanel(qsizetype display, const QImage &picture);

private:
    struct Surface {
        QImage picture;
        desktop::Owned<wl_surface> surface;
        wl_proxy *layerSurface;
        uint32_t serial = 0; ///< 0 until the desktop has told the size
    };

    [[nodiscard]] bool has(qsizetype display) const
    {
        return m_globals.layers && display < m_globals.outputs.size();
    }
    Surface &create(qsizetype display, const QImage &picture, uint32_t layer);
    [[nodiscard]] bool show(Surface &surface);
    void draw(const Surface &surface);

    desktop::WaylandConnection m_connection;
    desktop::WaylandGlobals m_globals{m_connection};
    std::vector<std::unique_ptr<Surface>> m_surfaces;
};

} // namespace corvane::demo
