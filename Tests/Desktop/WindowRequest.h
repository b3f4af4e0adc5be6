#pragma once

#include "Rect.h"

#include <QtCore/QByteArray>

#include <algorithm>
#include <array>
#include <cstring>
#include <xcb/xcb.h>

namespace corvane::desktop {

/// A short text that is copied with its record, byte by byte.
class Text
{
public:
    Text(const char *text) : Text(QByteArray(text)) { }
    Text(const QByteArray &text) : m_size(std::min(text.size(), qsizetype(m_bytes.size())))
    {
        std::copy_n(text.begin(), m_size, m_bytes.begin());
    }
    operator QByteArray() const { return {m_bytes.data(), m_size}; }

private:
    std::array<char, 200> m_bytes{};
    qsizetype m_size;
};

/// A window that the test client is to open.
struct WindowRequest {
    enum class Kind { normal, dialog, utility, dock, desktop, splash };
    using Edges = std::array<quint32, 4>; ///< left, right, top, bottom
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
    Text title{"Test window"};
    int titleRepeats = 1;
    Text className{"CorvaneTestClient"}; ///< and instance
    Kind kind = Kind::normal;
    bool decorated = true; ///< by the window manager
    SizeHints hints{};
    Edges shadow{}; ///< a client-side decorated window's, inside `geometry`
    int shadowDelay = 30; ///< how long after a change of state the client adapts its shadow
    int answersAfter = 0; ///< Wayland: how long after it is given a size the client draws itself so
    std::array<quint32, 12> strut{}; ///< _NET_WM_STRUT_PARTIAL
    bool takesKeys = false; ///< Wayland: a panel that may have the focus
    xcb_window_t transientFor = XCB_WINDOW_NONE;
    bool transientForItself = false;
    xcb_window_t number = 0; ///< of one of the client's closed windows, to be used again

    // Both ends are on one machine.
    [[nodiscard]] QByteArray toBytes() const
    {
        return {reinterpret_cast<const char *>(this), sizeof *this};
    }
    [[nodiscard]] static WindowRequest fromBytes(const QByteArray &bytes)
    {
        WindowRequest request;
        std::memcpy(&request, bytes.constData(), sizeof request);
        return request;
    }

    /// A panel of the given thickness along one edge of `display` on a desktop of `desk`'s size.
    enum class Side { left, right, top, bottom };
    [[nodiscard]] static WindowRequest panel(
        const Rect &display, Side side, int thickness, const Rect &desk)
    {
        const double t = thickness;
        const bool isUpright = side == Side::left || side == Side::right;
        const std::array reserved{display.x + t, desk.maxX() - display.maxX() + t, display.y + t,
            desk.maxY() - display.maxY() + t};
        const auto number = [](double value) { return static_cast<quint32>(value); };
        const auto at = static_cast<size_t>(side);
        WindowRequest request{.title = "Panel", .kind = Kind::dock};
        request.geometry = {side == Side::right ? display.maxX() - t : display.x,
            side == Side::bottom ? display.maxY() - t : display.y, isUpright ? t : display.width,
            isUpright ? display.height : t};
        request.strut[at] = number(reserved[at]);
        request.strut[4 + 2 * at] = number(isUpright ? display.y : display.x);
        request.strut[5 + 2 * at] = number((isUpright ? display.maxY() : display.maxX()) - 1);
        return request;
    }
};
static_assert(std::is_trivially_copyable_v<WindowRequest>);

} // namespace corvane::desktop
