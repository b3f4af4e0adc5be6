#pragma once

#include "FreedesktopOwnWindows.h"
#include "Placer.h"
#include "ShortcutsInhibitor.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QSize>
#include <QtCore/QTimer>

namespace corvane::wayland {

/// The program's own windows, which the compositor moves and gives the focus to like any other.
class WaylandOwnWindows final : public freedesktop::FreedesktopOwnWindows
{
    Q_OBJECT

public:
    WaylandOwnWindows(ToplevelRegistry &registry, Placer &placer);

    bool knowsPlaces() override { return false; }
    void bringForward(quint64 window, const QString &token) override;
    void setTakesAllKeys(quint64 window, bool takesAll) override;
    void setOverlay(quint64 window, const Rect &frame) override;

private:
    /// What a window is to have as soon as the compositor shows it.
    struct Wish {
        quint64 window = 0;
        Compositor::Time end;
        std::optional<Rect> overlay; ///< else the focus
    };

    /// Remembers the size that a window is shown with, before the compositor has its say.
    bool eventFilter(QObject *object, QEvent *event) override;
    void wish(quint64 window, const std::optional<Rect> &overlay);
    void grant();
    void show(const Wish &wish, const Toplevel &toplevel, const Desk &desk);
    void placeInTheMiddle(const QWindow &window, const Toplevel &toplevel, const Desk &desk);
    [[nodiscard]] const Toplevel *toplevelOf(quint64 window, const Desk &desk) const;

    ToplevelRegistry &m_registry;
    Placer &m_placer;
    QHash<const QWindow *, QSize> m_wanted;
    QList<Wish> m_wishes;
    QSet<WindowElement> m_placed; ///< where they are from now on is up to the user
    std::unique_ptr<ShortcutsInhibitor> m_inhibitor; ///< null while no window takes all keys by it
    QTimer m_keysRenewal; ///< active while a window takes all keys without it
};

} // namespace corvane::wayland
