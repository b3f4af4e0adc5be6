#pragma once

#include "LayoutEngine.h"
#include "MissingWindows.h"
#include "PlacedStack.h"
#include "Platform.h"
#include "StrayWatch.h"
#include "WindowFinder.h"

namespace corvane {

/// One apply of a layout, step by step. Time may pass between the steps, never inside one.
class LayoutRun final
{
public:
    struct Terms {
        Clock::Duration launchWait;
        Clock::Duration retryFor;
        LayoutEngine::Follow follow;
    };

    enum class End { timeIsUp, superseded };

    /// The engine and the opener outlive the run.
    LayoutRun(const LayoutEngine &engine, AppOpener &opener, const WindowLayout &layout,
        const Terms &terms);

    void refuseAll(const QString &reason);
    /// Settles what needs no window, opens what does not run, and places the windows that are there.
    void begin();
    /// Whether a pane waits for its window, or a window may still leave its pane.
    [[nodiscard]] bool isUnderWay() const;
    /// How long to wait before `goOn`.
    [[nodiscard]] Clock::Duration pause() const;
    void goOn();
    /// Gives up the panes that have no window.
    void end(End end);

    void leaveAlone(const AXWindow &window);

    [[nodiscard]] const QList<PaneResult> &results() const { return m_results; }

private:
    using Status = PaneResult::Status;
    /// Panes of the layout, by index.
    using Panes = QList<qsizetype>;

    struct Assignment {
        qsizetype pane;
        std::optional<AXWindow> window = {};
        expected<Rect, AXError> previous = {};
        Rect target = {};
    };

    struct Followed {
        Assignment assignment;
        StrayWatch watch;
    };

    [[nodiscard]] const Pane &pane(qsizetype index) const { return m_results[index].pane; }
    [[nodiscard]] std::optional<Status> settledAtOnce(const Pane &pane);
    [[nodiscard]] const expected<void, QString> &open(const QString &bundleID);
    [[nodiscard]] bool isWaiting() const;
    [[nodiscard]] bool isComingUp();
    void askForMissing();
    void pass();
    /// Places what it finds. The panes that it found no window for.
    [[nodiscard]] Panes place(const Panes &panes);
    [[nodiscard]] Status statusWithoutWindow(const Pane &pane, End end) const;

    [[nodiscard]] QList<Assignment> assignments(const Panes &panes);
    [[nodiscard]] std::optional<Status> settled(const Assignment &assignment);
    [[nodiscard]] expected<void, MoveError> move(const Assignment &assignment);
    [[nodiscard]] Rect reached(const Assignment &assignment);
    void tell(const AXWindow &window, qsizetype pane, const PaneStatus::Placed &placed);
    void tellPassed();
    void tellProgress();

    void follow(const Assignment &assignment, const Rect &reached);
    void reviewFollowed();
    /// Whether to follow it further.
    [[nodiscard]] bool review(Followed &followed, bool isButtonDown);
    void awaitAnother(qsizetype index);
    [[nodiscard]] bool putBack(Followed &followed, const Rect &strayed);

    const LayoutEngine &m_engine;
    AppOpener &m_opener;
    const Terms m_terms;
    QList<PaneResult> m_results;
    QMap<int, ScreenInfo> m_screens; ///< by the layout's display
    QSet<QString> m_running = runningIdentifiers(); ///< when the run began
    QHash<QString, expected<void, QString>> m_opened;
    QSet<QString> m_comingUp; ///< opened, and without a window so far
    Panes m_order; ///< in which windows are placed
    Panes m_waiting; ///< for a window, in that order
    std::optional<Panes> m_toldWaiting;
    WindowFinder m_finder;
    MissingWindows m_missing;
    PlacedStack m_stack;
    QList<Followed> m_followed;
    QList<PaneResult> m_untold; ///< placed or put back by the step under way

    Clock::Duration m_launchDeadline{};
    std::optional<Clock::Duration> m_retryDeadline; ///< once nothing is coming up any more
    Clock::Duration m_nextPass{};
    int m_rounds = 0; ///< passes while waiting for that deadline
};

} // namespace corvane
