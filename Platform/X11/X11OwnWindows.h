#pragma once

#include "EmbeddingTray.h"
#include "FreedesktopOwnWindows.h"

#include <QtCore/QHash>

namespace corvane::x11 {

/// Asks the server by Qt's connection, which shows the windows, and by the back end's own where Qt
/// has no part in it.
class X11OwnWindows final : public freedesktop::FreedesktopOwnWindows
{
    Q_OBJECT

public:
    explicit X11OwnWindows(Connection &connection);

    Tray tray() override;
    void bringForward(quint64 window, const QString &token) override;
    bool takePointer(quint64 window) override;
    void setTakesAllKeys(quint64 window, bool takesAll) override;
    bool showsTranslucency() override;
    /// Returns once a window that is shown next will be shown that way.
    void setListed(quint64 window, bool isListed) override;
    void setOverlay(quint64 window, const Rect &frame) override;

private:
    void endStartup(xcb_window_t window, const QString &token);
    [[nodiscard]] bool isManaged(xcb_window_t window);
    void changeProperty(xcb_window_t window, bool isListed);
    void askWindowManager(xcb_window_t window, bool isListed);

    Connection &m_connection;
    std::optional<EmbeddingTray> m_embedding; ///< none before the tray was asked for
    QHash<quint64, bool> m_missed; ///< the wishes of `setListed` that nothing answered
};

} // namespace corvane::x11
