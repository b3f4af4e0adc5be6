#pragma once

#include "Pane.h"
#include "Rect.h"

#include <variant>

namespace corvane {

/// What became of one pane of a layout. Rectangles in accessibility coordinates.
struct PaneStatus {
    struct Placed {
        QString windowTitle;
        Rect frame; ///< the one that the window took
        Rect previous;
        bool wasOpened; ///< for this pane
        bool operator==(const Placed &) const = default;
    };
    /// The move, or the opening of the app, or the whole layout.
    struct Refused {
        QString reason;
        bool operator==(const Refused &) const = default;
    };
    /// The pane has no app.
    struct Empty {
        bool operator==(const Empty &) const = default;
    };
    struct DisplayMissing {
        bool operator==(const DisplayMissing &) const = default;
    };
    struct NotInstalled {
        bool operator==(const NotInstalled &) const = default;
    };
    /// And the pane does not open its app.
    struct NotRunning {
        bool operator==(const NotRunning &) const = default;
    };
    /// The app was opened, and never had a window for the pane.
    struct Launched {
        bool showsAnother = false; ///< windows, but none that the pane names
        bool operator==(const Launched &) const = default;
    };
    /// The app was running, and never had a window for the pane.
    struct NoWindow {
        bool operator==(const NoWindow &) const = default;
    };

    std::variant<Placed, Refused, Empty, DisplayMissing, NotInstalled, NotRunning, Launched,
        NoWindow>
        value;

    bool operator==(const PaneStatus &) const = default;
};

struct PaneResult {
    using Status = PaneStatus;

    Pane pane;
    Status status;

    /// For messages; empty for a pane without an app.
    [[nodiscard]] QString appName() const;

    bool operator==(const PaneResult &) const = default;
};

/// Whether the pane is as it should be: its app is in its place, or it has none.
[[nodiscard]] bool needsNothing(const PaneStatus &status);
/// The case's name, such as "displayMissing".
[[nodiscard]] QString statusName(const PaneStatus &status);
/// What the user reads after the app's name; empty where there is nothing to say.
[[nodiscard]] QString statusText(const PaneStatus &status);

} // namespace corvane
