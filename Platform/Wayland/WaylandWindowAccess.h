#pragma once

#include "Placer.h"
#include "WindowAccess.h"

#include <QtCore/QSet>

namespace corvane::wayland {

/// Windows as a Wayland compositor's own way in reads and moves them.
class WaylandWindowAccess final : public WindowAccess
{
    Q_OBJECT

public:
    WaylandWindowAccess(ToplevelRegistry &registry, Placer &placer);

    bool isTrusted() override;
    QString distrustReason() override;
    void setMessagingTimeout(double seconds) override;
    void setTiledWindowsStay(bool stay) override { m_tiledStay = stay; }

    Focused focusedWindow() override;
    expected<QList<WindowElement>, AXError> windows(pid_t pid) override;
    QList<OnScreenWindow> onScreenWindows() override;

    expected<Rect, AXError> frame(const WindowElement &window) override;
    expected<QString, AXError> title(const WindowElement &window) override;
    expected<bool, AXError> isFullScreen(const WindowElement &window) override;
    expected<bool, AXError> isMinimized(const WindowElement &window) override;
    expected<bool, AXError> isWindow(const WindowElement &window) override;
    expected<bool, AXError> isStandard(const WindowElement &window) override;

    AXError setPosition(const WindowElement &window, Point origin) override;
    AXError setSize(const WindowElement &window, Size size) override;
    bool isFinal(const WindowElement &window, Size size) override;
    QString refusalDetail(const WindowElement &window) override;
    std::optional<WindowState> endedState(const WindowElement &window) const override;
    AXError restore(const WindowElement &window, const Rect &frame,
        const std::optional<WindowState> &state) override;

    void raise(const WindowElement &window) override;
    void makeMain(const WindowElement &window) override;
    void bringForward(pid_t pid) override;
    bool bringToFrontAlone(const WindowElement &window) override;

    AXError observe(pid_t pid) override;
    void stopObserving(pid_t pid) override;

    void beginOperation() override { m_registry.beginOperation(); }
    void endOperation() override;
    void readAnew(const WindowElement &) override { m_registry.outdate(); }
    void readAhead(const QList<pid_t> &pids) override;
    void moveAhead(const QList<WindowMove> &moves) override;

Q_SIGNALS:
    /// We are giving this window the focus.
    void activating(const corvane::WindowElement &window);

private:
    struct PendingSize {
        WindowElement window;
        Size size;
    };

    /// The window as it is now, once what was asked of it has happened.
    [[nodiscard]] expected<Toplevel, AXError> toplevel(const WindowElement &window);
    [[nodiscard]] AXError flushSize();
    [[nodiscard]] AXError place(const Toplevel &before, const Rect &frame);
    [[nodiscard]] expected<Toplevel, AXError> leaveStates(const Toplevel &before);
    [[nodiscard]] AXError refuse(AXError error, const QString &detail);
    void bringToFront(const QList<WindowElement> &windows);
    void announce(const Toplevel &window);
    void forget(const Toplevel &window);

    ToplevelRegistry &m_registry;
    Compositor &m_compositor;
    Placer &m_placer;
    bool m_tiledStay = false;
    // What is known within one operation.
    QHash<WindowElement, WindowState> m_endedStates;
    QSet<WindowElement> m_unanswering;
    std::optional<PendingSize> m_pendingSize;
    QList<WindowElement> m_toFront; ///< when the operation ends
    QString m_refusalDetail;
    QSet<pid_t> m_observed;
};

} // namespace corvane::wayland
