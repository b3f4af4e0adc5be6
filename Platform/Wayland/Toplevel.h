#pragma once

#include "ApplicationMatch.h"
#include "Rect.h"
#include "WindowElement.h"

#include <QtCore/QList>

#include <optional>

namespace corvane::wayland {

enum class ToplevelKind {
    standard,
    dialog, ///< and every other kind that can be placed: utilities, splash screens
    panel,
    desktop,
};

/// What a compositor tells of one window, at one moment.
struct Toplevel {
    WindowElement element; ///< never given to another window while the program runs
    freedesktop::ApplicationTraces traces; ///< `publishedId` is the Wayland application id
    QString title;
    Rect frame; ///< what a person sees: with the decoration, without a shadow
    Size client{}; ///< the frame less the decoration; zero where nobody tells
    ToplevelKind kind = ToplevelKind::standard;
    bool maximizedHorizontally = false;
    bool maximizedVertically = false;
    bool fullScreen = false;
    bool tiled = false; ///< placed by the compositor's own layout
    bool minimized = false;
    bool here = true; ///< on a workspace that is shown, were it minimised there
    bool concealed = false; ///< there, but behind another tab
    bool listed = true; ///< in the task bar
    bool movable = true;
    bool resizable = true;
    Size minimum{}; ///< of the frame; zero where there is none, or nobody tells
    Size maximum{};
    Size
        increment{}; ///< by whose multiples the size differs from any other that it takes; zero: any

    [[nodiscard]] bool isMaximized() const { return maximizedHorizontally || maximizedVertically; }
    [[nodiscard]] bool hasState() const { return isMaximized() || fullScreen || tiled; }
    [[nodiscard]] bool isOnScreen() const { return here && !minimized && !concealed; }
    /// The size that the window's limits make of this one.
    [[nodiscard]] Size sizeFor(Size asked) const;

    bool operator==(const Toplevel &) const = default;
};

/// What panels leave of an output.
struct WorkArea {
    Rect output; ///< the frame by which the output is known
    Rect visible;

    bool operator==(const WorkArea &) const = default;
};

/// The windows of the desktop at one moment.
struct Desk {
    QList<Toplevel> windows; ///< front to back
    std::optional<WindowElement> focused; ///< none while a panel or the desktop has the focus
    QList<WorkArea> workAreas;

    [[nodiscard]] const Toplevel *find(const WindowElement &window) const;
};

} // namespace corvane::wayland
