#pragma once

#include "Rect.h"

#include <QtCore/QObject>

namespace corvane {

/// Whose menu opens at a click on the program's icon in the panel.
enum class MenuForm {
    drawn, ///< ours with either button
    drawnOrExported, ///< ours with the left button; with the right one the panel shows only its own
    exported, ///< one that the panel draws from a description; it takes no other
};

/// The place in the desktop's panel where programs show their icons.
struct Tray {
    bool isKnown = false; ///< the desktop has said by now whether there is a tray
    bool isOnBus = false; ///< a panel shows the icons that it is told of over the session bus
    bool takesWindows = false; ///< a panel takes the icons' windows in
    bool isDark = false; ///< the panel is, whatever the user chose for windows
    MenuForm menu = MenuForm::drawnOrExported; ///< of an icon that a panel is told of over the bus

    [[nodiscard]] bool isThere() const { return isOnBus || takesWindows; }
    bool operator==(const Tray &) const = default;
};

/// What only the desktop can do for the windows that this program shows itself. A window is named by
/// the window system's number. What a desktop cannot do for them, it does not do.
class OwnWindows : public QObject
{
    Q_OBJECT

public:
    /// The first call begins to follow the tray; none waits for an answer.
    [[nodiscard]] virtual Tray tray() = 0;

    /// Brings a window that is shown before all others, with the focus, onto the workspace that the
    /// user sees. `token` is the permission that whoever asked for the window passed on; it may be
    /// empty.
    virtual void bringForward(quint64 window, const QString &token) = 0;
    /// Whether the desktop tells where the pointer and the program's icon are, lets windows choose their
    /// place, and menus hold the pointer. Where it does not, `setOverlay` puts a menu in its place.
    [[nodiscard]] virtual bool knowsPlaces() { return true; }
    /// Takes the pointer for this window, as an open menu needs it. False while another program holds
    /// it; true where nobody can tell.
    [[nodiscard]] virtual bool takePointer(quint64 window) = 0;
    /// Gives this window all keys, those of other programs' shortcuts too, or ends that; done when the
    /// call returns. Where the desktop or another program that holds the keyboard forbids it, the
    /// window has the keys that any window has.
    virtual void setTakesAllKeys(quint64 window, bool takesAll) = 0;
    /// Whether the desktop blends translucent windows with what is behind them.
    [[nodiscard]] virtual bool showsTranslucency() = 0;
    /// Whether task bar and switcher list this window. Lasts until the window is closed.
    virtual void setListed(quint64 window, bool isListed) = 0;
    /// Has a window without a frame of its own, which is shown next, stand there to the pixel and above
    /// all others. In accessibility coordinates.
    virtual void setOverlay(quint64 window, const Rect &frame) = 0;

Q_SIGNALS:
    void trayChanged();
};

} // namespace corvane
