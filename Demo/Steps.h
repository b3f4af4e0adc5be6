#pragma once

#include "Desk.h"
#include "KeyPresser.h"
#include "Placement.h"

namespace corvane::demo {

/// One placement that a user asks for.
struct Step {
    Application application;
    Placement pressed;
    /// Where the window belongs: further on in a cycle, or what it keeps on another display.
    Placement becomes = pressed;
    bool wasMaximized = false; ///< by the window manager, before
};

/// Steps after which the desk is worth a picture.
struct Chapter {
    QString picture; ///< the name of its file
    QList<Step> steps;
};

[[nodiscard]] QList<Chapter> scenario();

/// The keys that a user presses for a placement.
struct Shortcut {
    desktop::KeyStroke stroke;
    QString text; ///< as a person reads it, such as "Ctrl+Alt+Super+Left"
};

/// Absent for a placement without a shortcut.
[[nodiscard]] std::optional<Shortcut> shortcut(Placement placement);

} // namespace corvane::demo
