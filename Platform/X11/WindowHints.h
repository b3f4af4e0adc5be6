#pragma once

#include "Rect.h"

#include <QtCore/QtGlobal>

#include <span>
#include <xcb/xcb.h>

namespace corvane::x11 {

/// What a client accepts as its size, from WM_NORMAL_HINTS (ICCCM 4.1.2.3), in pixels of the client
/// window. Absurd values are dropped when read, so that every field can be used as it is.
struct WindowHints {
    Size minimum{1, 1};
    Size maximum{32767, 32767};
    Size base;
    Size increment{1, 1};
    Size leastAspect; ///< width : height; zero when the client set none
    Size mostAspect;

    /// The size that the client takes for `asked`: the nearest, no larger where it can be so small.
    [[nodiscard]] Size constrained(Size asked) const;

    static WindowHints fromProperty(std::span<const quint32> values);

    bool operator==(const WindowHints &) const = default;
};

} // namespace corvane::x11
