#pragma once

#include "GrabProbe.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// Where the window goes, in the terms that the rivals are told it.
struct Goal {
    Rect frame; ///< what a person sees of it
    Rect client; ///< the client window, root coordinates
};

/// A program that moves the window to the first goal on one key and to the second on another.
class Rival
{
public:
    using Goals = std::array<Goal, 2>;
    using Keys = std::array<desktop::KeyStroke, 2>;

    [[nodiscard]] static Rival corvane(desktop::VirtualDesktop &desktop);
    [[nodiscard]] static Rival minimal(
        desktop::VirtualDesktop &desktop, xcb_window_t window, const Goals &goals);
    [[nodiscard]] static Rival sxhkdWithWmctrl(
        desktop::VirtualDesktop &desktop, const Goals &goals);

    [[nodiscard]] const Keys &keys() const { return m_keys; }
    /// Waits until its keys are grabbed.
    [[nodiscard]] bool isListening(desktop::XConnection &connection);
    [[nodiscard]] pid_t pid() const { return m_process->pid(); }

private:
    Rival(const Keys &keys, std::unique_ptr<desktop::ChildProcess> process);

    Keys m_keys;
    std::unique_ptr<desktop::ChildProcess> m_process;
};

} // namespace corvane::bench
