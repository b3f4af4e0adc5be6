#pragma once

#include "LayoutEngine.h"
#include "Platform.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

namespace corvane {

/// One apply of a layout, step by step. Time may pass between the steps, never inside one.
class LayoutRun final
{
public:
    /// Panes of the layout, by index.
    using Panes = QList<qsizetype>;

    /// The engine outlives the run.
    LayoutRun(const LayoutEngine &engine, const WindowLayout &layout);

    void refuseAll(const QString &reason);
    /// Settles what needs no window and opens what does not run. The panes that remain, in the order
    /// in which their windows are to be placed.
    [[nodiscard]] Panes begin();
    /// Whether an application that was opened has not shown a window yet.
    [[nodiscard]] bool isComingUp();
    /// Places what it finds. The panes that it found no window for.
    [[nodiscard]] Panes place(Panes panes);
    void giveUp(const Panes &panes);
    /// In the order of their placing, so that the last one ends on top.
    void bringForward();

    [[nodiscard]] const QList<PaneResult> &results() const { return m_results; }

private:
    struct Candidate;
    struct Assignment;
    using Status = PaneResult::Status;

    [[nodiscard]] const Pane &pane(qsizetype index) const { return m_results[index].pane; }
    [[nodiscard]] std::optional<Status> settledAtOnce(const Pane &pane);
    [[nodiscard]] const expected<void, QString> &open(const QString &bundleID);

    /// A call to an application, unless one has timed out before.
    template <typename Question>
    [[nodiscard]] std::invoke_result_t<Question> ask(pid_t pid, Question question);
    [[nodiscard]] QList<AXWindow> windowsOf(pid_t pid);
    [[nodiscard]] expected<Rect, AXError> frameOf(const AXWindow &window);
    [[nodiscard]] QString titleOf(const AXWindow &window);
    [[nodiscard]] QHash<QString, QList<Candidate>> candidates(const Panes &panes);
    [[nodiscard]] QList<Assignment> assignments(const Panes &panes);
    [[nodiscard]] std::optional<AXWindow> claim(const Pane &pane, QList<Candidate> &candidates);
    [[nodiscard]] std::optional<Status> settled(const Assignment &assignment);
    [[nodiscard]] expected<void, MoveError> move(const Assignment &assignment);

    const LayoutEngine &m_engine;
    QList<PaneResult> m_results;
    QMap<int, ScreenInfo> m_screens; ///< by the layout's display
    QSet<QString> m_running; ///< when the run began
    QHash<QString, expected<void, QString>> m_opened;
    QSet<QString> m_comingUp;
    QSet<AXWindow> m_claimed; ///< each belongs to one pane, even if it did not move
    QSet<pid_t> m_unanswering; ///< let a request time out, and are asked nothing more
    QList<AXWindow> m_placed; ///< in the order of their placing
};

} // namespace corvane
