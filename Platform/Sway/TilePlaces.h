#pragma once

#include "Json.h"
#include "Toplevel.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>

namespace corvane::sway {

/// Where tiled windows stood in sway's layout before they left it, so that they can go back there.
class TilePlaces final
{
public:
    /// The window, which is tiled in this tree, is about to float.
    void remember(const WindowElement &window, const wayland::Json &tree);
    /// Commands that tile the window, between its neighbours and in its size where these are still there.
    [[nodiscard]] QByteArray wayBack(const WindowElement &window) const;
    void keepOnly(const QList<wayland::Toplevel> &windows);

private:
    struct Place {
        qint64 before = 0; ///< the window or group in front of it; 0 where it was the first
        qint64 behind = 0; ///< the one after it; 0 where it was the last
        int width = 0;
        int height = 0;
    };

    QHash<WindowElement, Place> m_places;
};

} // namespace corvane::sway
