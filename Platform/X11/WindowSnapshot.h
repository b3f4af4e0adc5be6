#pragma once

#include "WindowHints.h"

#include <optional>

namespace corvane::x11 {

struct Extents {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;

    /// The extents in a property of four values; nothing where they are absent or absurd.
    static std::optional<Extents> fromProperty(std::span<const quint32> values);

    bool operator==(const Extents &) const = default;
};

enum class WindowKind {
    standard,
    dialog, ///< and every other kind that can be placed: utilities, menus torn off, splash screens
    panel,
    desktop,
};

/// The state of a window at one moment: all that placing it needs, read in one round trip.
struct WindowSnapshot {
    Rect client; ///< the client window inside its border, root coordinates
    Extents decoration; ///< around the client window
    double border = 0; ///< of the client window, part of the decoration
    Extents shadow; ///< inside the client window, drawn by the client
    bool publishesDecoration = true;
    bool drawsOwnDecoration = false; ///< publishes the extents of its shadow, were they zero
    bool maximizedHorizontally = false;
    bool maximizedVertically = false;
    bool fullScreen = false;
    bool hidden = false;
    bool viewable = true;
    bool tiled = false; ///< by a window manager that lets tiled windows be neither moved nor sized
    WindowKind kind = WindowKind::standard;
    quint32 desktop = 0;
    WindowHints hints;

    /// The rectangle that a person sees of the window.
    [[nodiscard]] Rect frame() const;
    /// The client window's size for a visible frame of this size, as the client accepts it.
    [[nodiscard]] Size clientSizeFor(Size frameSize) const;
    /// What a move request for this visible frame says.
    [[nodiscard]] Rect requestFor(const Rect &frame) const;

    bool isMaximized() const { return maximizedHorizontally || maximizedVertically; }
};

} // namespace corvane::x11
