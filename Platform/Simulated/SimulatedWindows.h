#pragma once

#include "SimulatedDesktop.h"
#include "WindowAccess.h"

#include <QtCore/QSet>

#include <variant>

namespace corvane {

/// One position or size that was asked of a window, and the answer.
struct WindowWrite {
    WindowElement window;
    std::variant<Point, Size> value;
    AXError status = AXError::success;

    bool operator==(const WindowWrite &) const = default;
};

class SimulatedWindows final : public WindowAccess
{
    Q_OBJECT

public:
    explicit SimulatedWindows(SimulatedDesktop &desktop);

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

    void beginOperation() override;
    void endOperation() override;
    void readAnew(const WindowElement &window) override { m_seenFrames.remove(window); }
    void moveAhead(const QList<WindowMove> &moves) override;

    // What a test asks afterwards.
    /// Every position and size asked for since the last `clearWrites`, refused ones included.
    [[nodiscard]] const QList<WindowWrite> &writes() const { return m_writes; }
    void clearWrites() { m_writes.clear(); }
    /// What `moveAhead` was asked for, call by call.
    [[nodiscard]] const QList<QList<WindowMove>> &movesAhead() const { return m_movesAhead; }
    [[nodiscard]] int operationDepth() const { return m_operationDepth; }
    /// How many outermost operations have ended.
    [[nodiscard]] int operationCount() const { return m_operationCount; }
    [[nodiscard]] bool isObserving(pid_t pid) const { return m_observed.contains(pid); }

private:
    /// The window that a call is for, if windows can be moved, it is open, and its application
    /// answers.
    expected<SimulatedWindow *, AXError> reach(const WindowElement &element);
    /// The same for a read, for which a size that was held back takes effect first.
    expected<SimulatedWindow *, AXError> reachToRead(const WindowElement &element);
    Rect seenFrame(const SimulatedWindow &window);
    AXError answer(pid_t pid);
    std::optional<AXError> refusal(SimulatedWindow &window, std::optional<AXError> refused);
    AXError writePosition(const WindowElement &element, Point origin);
    AXError writeSize(const WindowElement &element, Size size);
    void sendHeldSize(SimulatedWindow &window);
    void move(SimulatedWindow &window, Point origin);
    void resize(SimulatedWindow &window, Size size);

    SimulatedDesktop &m_desktop;
    Clock::Duration m_messagingTimeout{1000};
    QSet<pid_t> m_observed;
    QList<WindowWrite> m_writes;
    QList<QList<WindowMove>> m_movesAhead;
    QHash<WindowElement, Size> m_heldSizes;
    QHash<WindowElement, Rect> m_seenFrames; ///< the frames that this operation has seen
    int m_operationDepth = 0;
    int m_operationCount = 0;
};

} // namespace corvane
