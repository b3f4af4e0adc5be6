#pragma once

#include "GrabProbe.h"
#include "VirtualDesktop.h"

namespace corvane::bench {

/// Where the window goes, in the terms that the rivals are told it.
struct Goal {
    Rect frame; ///< what a person sees of it
    Rect client; ///< the client window, root coordinates
};

/// A program that moves windows to their first goals on one key and to their second on another.
class Rival
{
public:
    using Goals = std::array<Goal, 2>;
    using Keys = std::array<desktop::KeyStroke, 2>;

    Rival(const Keys &keys, std::unique_ptr<desktop::ChildProcess> process);

    [[nodiscard]] static Rival corvane(desktop::VirtualDesktop &desktop);
    [[nodiscard]] static Rival minimal(
        desktop::VirtualDesktop &desktop, xcb_window_t window, const Goals &goals);
    [[nodiscard]] static Rival sxhkdWithWmctrl(
        desktop::VirtualDesktop &desktop, const Goals &goals);

    /// A key daemon that runs a shell command for each of the two keys.
    [[nodiscard]] static Rival sxhkd(desktop::VirtualDesktop &desktop, const Keys &keys,
        const std::array<QByteArray, 2> &commands);

    [[nodiscard]] const Keys &keys() const { return m_keys; }
    /// Waits until its keys are grabbed.
    [[nodiscard]] bool isListening(desktop::XConnection &connection);
    [[nodiscard]] pid_t pid() const { return m_process->pid(); }

private:
    Keys m_keys;
    std::unique_ptr<desktop::ChildProcess> m_process;
};

} // namespace corvane::bench
