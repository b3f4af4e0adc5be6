#pragma once

#include "KeyPresser.h"
#include "ScreenStopwatch.h"
#include "VirtualDesktop.h"

#include <sys/types.h>

namespace corvane::bench {

/// Opens and closes the only window of a program, and times what appears in it.
class WindowStopwatch
{
public:
    /// `open` asks the program for its window.
    WindowStopwatch(desktop::VirtualDesktop &desktop, pid_t pid, std::function<void()> open);

    /// Opens the window, which stays open. False when it did not come.
    [[nodiscard]] bool open();
    [[nodiscard]] bool close();
    /// What the window shows once nothing of it changes any more.
    [[nodiscard]] Picture look();

    // Milliseconds, of a program that was at rest before; nothing when the end did not come.
    [[nodiscard]] std::optional<double> timeToOpen(const Picture &picture);
    [[nodiscard]] std::optional<double> time(
        const std::function<void()> &request, const Picture &picture);
    [[nodiscard]] std::optional<double> time(desktop::Key key, const Picture &picture);
    [[nodiscard]] std::optional<double> time(
        const desktop::KeyStroke &stroke, const std::function<bool()> &condition);

    void press(const desktop::KeyStroke &stroke) { m_keyboard.press(stroke); }
    /// Waits until the program is at rest.
    void rest();

private:
    [[nodiscard]] bool isOpen();

    desktop::VirtualDesktop &m_desktop;
    desktop::WindowProbe m_probe;
    desktop::KeyPresser m_keyboard;
    pid_t m_pid;
    std::function<void()> m_open;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

} // namespace corvane::bench
