#pragma once

#include "WindowAccess.h"
#include "WindowPlacer.h"
#include "WindowRegistry.h"

#include <QtCore/QSet>

namespace corvane::x11 {

/// Windows as an EWMH pager reads and moves them.
class X11WindowAccess final : public WindowAccess, private EventSink
{
    Q_OBJECT

public:
    /// `obstacle`: why nothing can be moved in this session at all; empty where it can.
    X11WindowAccess(Connection &connection, WindowManagerLink &windowManager,
        WindowRegistry &registry, const QString &obstacle);
    ~X11WindowAccess() override;

    bool isTrusted() override;
    QString distrustReason() override;
    void setMessagingTimeout(double seconds) override;

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

    void beginOperation() override { ++m_operations; }
    void endOperation() override;
    void readAnew(const WindowElement &window) override;
    void readAhead(const QList<pid_t> &pids) override;
    void moveAhead(const QList<WindowMove> &moves) override;

private:
    struct PendingSize {
        WindowElement window;
        Size size;
    };

    void handle(const xcb_generic_event_t &event) override;
    void announce(const QList<WindowElement> &windows);
    void forget(const WindowElement &window);
    void reviewTrust();

    /// The window as it is now, once what was asked of it has happened; inside an operation, as it
    /// was read last.
    [[nodiscard]] expected<WindowSnapshot, AXError> snapshotOf(const WindowElement &window);
    [[nodiscard]] expected<WindowSnapshot, AXError> remember(
        const WindowElement &window, expected<WindowSnapshot, AXError> snapshot);
    void readAgain(const QList<WindowElement> &windows);
    void learnFullScreen(const WindowElement &window, bool fullScreen);

    /// Whether the window is there and may be read and written.
    [[nodiscard]] AXError access(const WindowElement &window) const;
    [[nodiscard]] AXError flushSize();
    void sendRaise(const WindowElement &window);
    void sendActivate(const WindowElement &window);
    [[nodiscard]] AXError place(
        const WindowElement &window, const WindowSnapshot &before, const Rect &frame);
    [[nodiscard]] AXError rememberPlaced(
        const WindowElement &window, const expected<WindowSnapshot, AXError> &after);

    Connection &m_connection;
    WindowManagerLink &m_windowManager;
    WindowRegistry &m_registry;
    WindowPlacer m_placer;
    QString m_obstacle;
    bool m_wasTrusted;

    xcb_window_t m_lastFocused = noWindow; ///< what to ask about before it is known to be right
    int m_operations = 0;
    // What is known within one operation.
    QHash<WindowElement, WindowSnapshot> m_snapshots;
    QHash<WindowElement, WindowState> m_endedStates;
    QHash<WindowElement, QString> m_titles;
    QHash<pid_t, QList<WindowElement>> m_windows;
    std::optional<PendingSize> m_pendingSize;
    std::optional<WindowElement> m_toBeFocused; ///< when the operation ends
    QString m_refusalDetail;
    QSet<WindowElement> m_filledByUs; ///< full screen only by our move, which filled a display
    QSet<pid_t> m_observed;
};

} // namespace corvane::x11
