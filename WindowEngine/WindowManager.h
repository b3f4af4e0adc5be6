#pragma once

#include "AXWindow.h"
#include "MoveOutcome.h"
#include "Placement.h"
#include "ScreenInfo.h"
#include "Screens.h"

#include <QtCore/QList>

#include <optional>

namespace corvane {

class WindowWatcher;

/// Performs placements on the focused window. Main thread only.
class WindowManager final
{
public:
    struct Options {
        double gap = 0; ///< points between windows, and between them and the display's edges
        bool cycling = true; ///< whether a repeated press walks through the placement's cycle
        double sizeStep = 60; ///< points by which larger and smaller change a window

        bool operator==(const Options &) const = default;
    };

    /// The frame that a window had before it was moved, and the state that it left for the move.
    struct HistoryEntry {
        AXWindow window;
        Rect frame;
        std::optional<WindowState> state = {};
    };

    /// The latest move, with the frame that the window took.
    struct LastMove {
        AXWindow window;
        Placement placement;
        Rect frame;
    };

    static constexpr int historyLimit = 200;

    explicit WindowManager(Options options);
    WindowManager(Options options, const WindowWatcher &watcher);

    [[nodiscard]] const Options &options() const { return m_options; }
    void setOptions(const Options &options) { m_options = options; }
    /// Oldest first.
    [[nodiscard]] const QList<HistoryEntry> &history() const { return m_history; }
    [[nodiscard]] const std::optional<LastMove> &last() const { return m_last; }

    [[nodiscard]] MoveOutcome perform(Placement placement);
    /// Snap Back is to bring the window to this frame, which it had before it was moved.
    void remember(const AXWindow &window, const Rect &frame);
    /// Forgets the windows of applications that have ended.
    void pruneHistory();

private:
    struct Scene;
    struct Goal;

    [[nodiscard]] expected<Goal, MoveOutcome> goal(Placement placement, const Scene &scene);
    [[nodiscard]] expected<Goal, MoveOutcome> displayGoal(
        Placement placement, Screens::Direction direction, const Scene &scene) const;
    [[nodiscard]] expected<Goal, MoveOutcome> originalGoal(const Scene &scene) const;
    [[nodiscard]] expected<Goal, MoveOutcome> snapBackGoal(const Scene &scene);
    [[nodiscard]] expected<Goal, MoveOutcome> regionGoal(
        Placement placement, const Scene &scene) const;
    [[nodiscard]] MoveOutcome carryOut(const Goal &goal, const Scene &scene);

    /// Whether the latest move was of this window, which has stayed where it put it.
    [[nodiscard]] bool isUntouched(const AXWindow &window, const Rect &current) const;
    [[nodiscard]] Placement cycled(
        Placement pressed, const AXWindow &window, const Rect &current) const;

    const WindowWatcher &m_watcher;
    Options m_options;
    QList<HistoryEntry> m_history;
    std::optional<LastMove> m_last;
};

} // namespace corvane
