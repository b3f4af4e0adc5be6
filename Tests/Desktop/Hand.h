#pragma once

#include "Rect.h"
#include "Waiting.h"

#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>
#include <sys/types.h>

namespace corvane::desktop {

/// A window as one sees it on the desktop.
struct SeenWindow {
    quint32 number = 0; ///< the desktop's, or the hand's where that has none
    pid_t pid = 0;
    QString title;
    QString application; ///< Wayland's application id, or X11's class
    Rect frame; ///< decorations included, shadows excluded
    bool isActive = false;
    bool isFullScreen = false;
    bool isMaximized = false; ///< both ways
    bool isMinimized = false;
    bool isTiled = false;
    bool isHere = true; ///< on a workspace that is shown, minimised or not
    bool isPanel = false; ///< or a desktop

    bool operator==(const SeenWindow &) const = default;
};

/// The eyes and the hand of the person at a desktop, by the desktop's own means and apart from the program
/// under test. Calls are synchronous; nothing waits for an effect unless it says so.
class Hand
{
public:
    virtual ~Hand() = default;

    /// The windows of every workspace, bottom to top. Panels are windows for KWin, but not for sway.
    [[nodiscard]] virtual QList<SeenWindow> windows() = 0;

    virtual void activate(quint32 window) = 0;
    virtual void close(quint32 window) = 0;
    virtual void setMinimized(quint32 window, bool isMinimized) = 0;
    /// Where the desktop has such a state: sway and i3 have none.
    virtual void setMaximized(quint32 window, bool isMaximized) = 0;
    virtual void setFullScreen(quint32 window, bool isFullScreen) = 0;
    /// Into the place that the desktop's own layout has for it; KWin: the left half; X11: not at all.
    virtual void tile(quint32 window) = 0;
    /// To a workspace that is not shown, the second one where they are numbered.
    virtual void moveElsewhere(quint32 window) = 0;
    /// Gives a plain window this frame; X11: its client has the size.
    virtual void place(quint32 window, const Rect &frame) = 0;

    /// Makes the displays exactly these; X11, KWin: one without an area is unplugged. Returns once the
    /// desktop says so; false when it does not in time, or cannot.
    [[nodiscard]] virtual bool arrange(const QList<Rect> &displays) = 0;
    /// Of the display with this index, whose rectangle becomes smaller.
    [[nodiscard]] virtual bool setScale(int display, double scale) = 0;
    [[nodiscard]] virtual QList<Rect> displays() = 0;

    [[nodiscard]] std::optional<SeenWindow> window(quint32 number);
    [[nodiscard]] virtual Rect frame(quint32 number)
    {
        return window(number).value_or(SeenWindow()).frame;
    }
    /// The frame once it has stopped changing.
    [[nodiscard]] Rect settledFrame(quint32 number)
    {
        return settled([&] { return frame(number); });
    }
    [[nodiscard]] virtual quint32 activeWindow();
    /// Places the window and sees to it that it stays there: a window that has yet to draw itself
    /// after an earlier change loses a size. False when it takes another size.
    [[nodiscard]] bool putAt(quint32 window, const Rect &frame);
    /// The newest window of the process that is none of these; 0 when none came in time.
    [[nodiscard]] quint32 waitForWindow(
        pid_t pid, const QList<quint32> &known, Milliseconds deadline = patience);
    [[nodiscard]] QList<quint32> windowsOf(pid_t pid);
};

} // namespace corvane::desktop
