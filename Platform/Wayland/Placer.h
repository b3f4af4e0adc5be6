#pragma once

#include "ToplevelRegistry.h"

#include <QtCore/QTimer>

namespace corvane::wayland {

/// Places windows, and sees to it that they stay where they were placed. A compositor hands each new size
/// to the client, which draws itself and hands it back; a size that was handed back late, for an earlier
/// request, takes the window out of its new place again. So a window has one request under way at a
/// time, its frame is looked at again some time after the request, and the request is repeated when what
/// was asked for before has come back.
class Placer final : public QObject
{
    Q_OBJECT

public:
    explicit Placer(ToplevelRegistry &registry);

    /// Returns once the windows have taken their frames, at the latest after the messaging timeout.
    /// This program's own are not waited for: they draw themselves on the thread that would wait.
    /// Errors: those of the compositor, and `cannotComplete` when one of them has not answered.
    [[nodiscard]] AXError place(const QList<WindowMove> &moves);
    /// Waits until the window's frame is what `isDone` wants. False when it is not in time.
    [[nodiscard]] bool waitFor(
        const WindowElement &window, const std::function<bool(const Toplevel &)> &isDone);

    /// Whether the window has drawn itself for a request of this size, and made another one of it.
    [[nodiscard]] bool hasAnswered(const WindowElement &window, Size asked) const;
    /// The frame that the window goes back to, where a late answer to an earlier request has just
    /// taken it out of its place, or where this program's own window is about to go; else the one
    /// that is told.
    [[nodiscard]] Rect dueFrame(const Toplevel &window);
    void forget(const WindowElement &window) { m_placements.remove(window); }
    /// The compositor has just given the window this frame, for which it may have yet to draw itself.
    void noteGiven(const Toplevel &window)
    {
        m_placements.insert(window.element, begun(window, window.frame, Clock::now()));
        m_placements[window.element].state = State::settled;
    }

private:
    using Clock = std::chrono::steady_clock;
    using Time = Clock::time_point;

    enum class State {
        asked, ///< the window has not answered
        settled,
        unanswered, ///< for as long as the messaging timeout
    };
    struct Placement {
        Rect wanted;
        Rect before; ///< where the window stood when it was asked
        bool wasTaken = false; ///< the window has been seen where it is wanted
        QList<Size> earlier; ///< sizes that it was asked for shortly before
        /// What it drew itself for before is not known for sure, so any other size may be that.
        bool isSuspect = false;
        Time sent;
        Rect seen;
        Time seenSince;
        State state = State::asked;
        int repairs = 0;
        size_t reviews = 0; ///< done since it was sent
    };

    /// The last size that a window made another one of.
    struct Refusal {
        Size asked;
        Size taken;
    };

    struct Request {
        Toplevel window; ///< as it is before
        Rect frame;
    };

    [[nodiscard]] expected<QList<Request>, AXError> requestsFor(const QList<WindowMove> &moves);
    /// What to ask of the window to get the frame.
    [[nodiscard]] Rect askedFor(const Toplevel &window, const Rect &frame) const;
    [[nodiscard]] Placement begun(const Toplevel &window, const Rect &frame, Time now) const;
    void await(const QList<WindowElement> &windows, Time deadline);
    void look(Placement &placement, const Toplevel &window, Time now);
    /// How long the frame that was asked for must be told, until the window has taken it.
    [[nodiscard]] Compositor::Duration holdTime(
        const Placement &placement, const WindowElement &window) const;
    void learn(const WindowElement &window, Size taken);
    [[nodiscard]] bool isStale(
        const WindowElement &window, const Placement &placement, const Rect &frame) const;
    [[nodiscard]] bool isLimit(
        const WindowElement &window, const Placement &placement, Size size) const;
    void repeatIfDue(const WindowElement &window, Placement &placement, Time now);
    void bringInside(const Toplevel &window, const Rect &wanted, const QList<WorkArea> &workAreas);
    void scheduleReview();
    void review();

    ToplevelRegistry &m_registry;
    Compositor &m_compositor;
    QHash<WindowElement, Placement> m_placements;
    QHash<WindowElement, Size> m_least; ///< lengths that windows have been seen to take
    QHash<WindowElement, Refusal> m_refusals;
    QTimer m_review;
};

/// Whether two frames are the same, where outputs are scaled by fractions.
[[nodiscard]] bool isSame(const Rect &a, const Rect &b);

} // namespace corvane::wayland
