#pragma once

#include "WaylandCrowd.h"

namespace corvane::bench {

/// Our keys on a Wayland desktop, by what they do: one for each of two goals.
using WaylandKeys = std::array<desktop::KeyStroke, 2>;

/// What a minimal program is told to do: in the compositor's own language, to be run as it is.
struct MinimalOrders {
    QString beforehand; ///< at the start; none for sway
    std::array<QString, 2> onKey;
};

/// Moves one window, by its title; which it is, and where, only sway's tree tells.
[[nodiscard]] MinimalOrders moveOne(
    const desktop::WaylandDesktop &desktop, const QString &title, const std::array<Rect, 2> &goals);
/// Finds the windows by their titles, moves all of them, and has the last one come forward.
[[nodiscard]] MinimalOrders moveAll(
    const desktop::WaylandDesktop &desktop, const std::array<QList<Rect>, 2> &goals);

/// The least work that a program with this task can do on the desktop's compositor.
class MinimalProgram
{
public:
    /// The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<MinimalProgram>, QString> start(
        desktop::WaylandDesktop &desktop, const MinimalOrders &orders);

    [[nodiscard]] static const WaylandKeys &keys();

private:
    explicit MinimalProgram(std::unique_ptr<desktop::ChildProcess> process)
        : m_process(std::move(process))
    {
    }

    std::unique_ptr<desktop::ChildProcess> m_process;
};

} // namespace corvane::bench
