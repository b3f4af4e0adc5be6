#pragma once

#include "Rect.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>

#include <xcb/xcb.h>

namespace corvane::desktop {

/// A window that the test client is to open.
struct WindowRequest {
    enum class Kind { normal, dialog, utility, dock, desktop, splash, notification, toolbar };
    /// Four edges, in the order in which the properties list them.
    struct Edges {
        int left = 0;
        int right = 0;
        int top = 0;
        int bottom = 0;

        bool operator==(const Edges &) const = default;
    };
    /// WM_NORMAL_HINTS; zero means that the hint is not given.
    struct SizeHints {
        Size minimum{};
        Size maximum{};
        Size increment{};
        Size base{};
        Size minimumAspect{};
        Size maximumAspect{};
        int gravity = 0; ///< 10 is static
    };

    Rect geometry{100, 100, 400, 300}; ///< of the client, shadows included
    QByteArray title{"Test window"};
    int titleRepeats = 1;
    QByteArray className{"CorvaneTestClient"}; ///< and instance
    Kind kind = Kind::normal;
    bool decorated = true; ///< by the window manager
    bool placed = true; ///< asks for its position as a user would
    SizeHints hints{};
    Edges shadow{}; ///< a client-side decorated window's, inside `geometry`
    /// How long after a change of state the client adapts its shadow.
    int shadowDelay = 30;
    QList<quint32> strut{}; ///< the twelve numbers of _NET_WM_STRUT_PARTIAL
    xcb_window_t transientFor = XCB_WINDOW_NONE;
    bool transientForItself = false;
    xcb_window_t number =
        XCB_WINDOW_NONE; ///< of one of the client's closed windows, to be used again

    [[nodiscard]] QByteArray toBytes() const;
    [[nodiscard]] static WindowRequest fromBytes(const QByteArray &bytes);

    /// A panel of the given thickness along one edge of `display` on a desktop of `desk`'s size.
    enum class Side { left, right, top, bottom };
    [[nodiscard]] static WindowRequest panel(
        const Rect &display, Side side, int thickness, const Rect &desk);
};

} // namespace corvane::desktop
