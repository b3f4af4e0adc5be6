#pragma once

#include "WindowRequest.h"
#include "XConnection.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <unistd.h>
#include <xcb/xcb_icccm.h>

namespace corvane::desktop {

/// One window of the test client.
class ClientWindow
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Creates and maps the window.
    ClientWindow(XConnection &connection, const WindowRequest &request)
        : m_connection(connection)
        , m_request(request)
        , m_number(request.number ? request.number : xcb_generate_id(connection.raw()))
    {
        // Toolkits draw a shadow only where the window manager knows what it is.
        if (!connection.numbers(connection.root(), "_NET_SUPPORTED")
                 .contains(connection.atom("_GTK_FRAME_EXTENTS")))
            dropShadow();
        const Rect &rect = m_request.geometry;
        const quint32 colour = 0x203040 + m_number % 16 * 0x0B0A09;
        const std::array<quint32, 2> values{colour, XCB_EVENT_MASK_PROPERTY_CHANGE};
        xcb_create_window(connection.raw(), XCB_COPY_FROM_PARENT, m_number, connection.root(),
            static_cast<qint16>(rect.x), static_cast<qint16>(rect.y),
            static_cast<quint16>(std::max(1.0, rect.width)),
            static_cast<quint16>(std::max(1.0, rect.height)), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
            XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
        describe();
        describeKind();
        describeSize();
        xcb_map_window(connection.raw(), m_number);
        connection.sync();
    }

    [[nodiscard]] xcb_window_t number() const { return m_number; }

    /// The window manager changed the window's state: the shadow follows a little later, as
    /// toolkits do it.
    void stateChanged(Time now)
    {
        if (m_request.shadow != WindowRequest::Edges{})
            m_shadowDue = now + std::chrono::milliseconds(m_request.shadowDelay);
    }
    [[nodiscard]] bool isShadowDue() const { return m_shadowDue.has_value(); }
    void adaptShadowIfDue(Time now)
    {
        if (!m_shadowDue || now < *m_shadowDue)
            return;
        m_shadowDue.reset();
        const QList<quint32> states = m_connection.numbers(m_number, "_NET_WM_STATE");
        const auto has = [&](const char *state) {
            return states.contains(m_connection.atom(QByteArray("_NET_WM_STATE_") + state));
        };
        const bool fills = has("MAXIMIZED_VERT") || has("MAXIMIZED_HORZ") || has("FULLSCREEN");
        publishShadow(fills ? WindowRequest::Edges{} : m_request.shadow);
        m_connection.sync();
    }

private:
    void publishShadow(const WindowRequest::Edges &edges)
    {
        setNumbers("_GTK_FRAME_EXTENTS", "CARDINAL", {edges.begin(), edges.end()});
    }
    void dropShadow()
    {
        const auto [left, right, top, bottom] = m_request.shadow;
        const Rect &rect = m_request.geometry;
        m_request.geometry = {
            rect.x + left, rect.y + top, rect.width - left - right, rect.height - top - bottom};
        m_request.shadow = {};
    }
    void describe()
    {
        const QByteArray title = QByteArray(m_request.title).repeated(m_request.titleRepeats);
        const QByteArray name = QByteArray(m_request.className) + '\0';
        m_connection.setBytes(m_number, "_NET_WM_NAME", "UTF8_STRING", title);
        m_connection.setBytes(m_number, "WM_NAME", "STRING", title.left(1000));
        m_connection.setBytes(m_number, "WM_CLASS", "STRING", name + name);
        setNumbers("_NET_WM_PID", "CARDINAL", {static_cast<quint32>(::getpid())});
        setNumbers("WM_PROTOCOLS", "ATOM", {m_connection.atom("WM_DELETE_WINDOW")});
        const QList<quint32> takesInput{3, 1, XCB_ICCCM_WM_STATE_NORMAL, 0, 0, 0, 0, 0, 0};
        setNumbers("WM_HINTS", "WM_HINTS", takesInput);
    }
    void describeKind()
    {
        constexpr std::array kinds{"NORMAL", "DIALOG", "UTILITY", "DOCK", "DESKTOP", "SPLASH"};
        const QByteArray kind = kinds[static_cast<size_t>(m_request.kind)];
        setNumbers(
            "_NET_WM_WINDOW_TYPE", "ATOM", {m_connection.atom("_NET_WM_WINDOW_TYPE_" + kind)});
        if (!m_request.decorated)
            setNumbers("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0});
        if (m_request.shadow != WindowRequest::Edges{})
            publishShadow(m_request.shadow);
        const QList<quint32> strut(m_request.strut.begin(), m_request.strut.end());
        if (strut.count(0) < strut.size()) {
            setNumbers("_NET_WM_STRUT", "CARDINAL", strut.first(4));
            setNumbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", strut);
        }
        const xcb_window_t parent =
            m_request.transientForItself ? m_number : m_request.transientFor;
        if (parent)
            setNumbers("WM_TRANSIENT_FOR", "WINDOW", {parent});
    }
    void describeSize()
    {
        const auto number = [](double value) {
            return static_cast<qint32>(static_cast<qint64>(value));
        };
        const auto [least, most, increment, base, leastAspect, mostAspect, gravity] =
            m_request.hints;
        const Rect &rect = m_request.geometry;
        xcb_size_hints_t hints{};
        const auto set = [&](auto setter, Size size) {
            if (size != Size{})
                setter(&hints, number(size.width), number(size.height));
        };
        xcb_icccm_size_hints_set_position(&hints, true, number(rect.x), number(rect.y));
        // i3 believes the size given here.
        xcb_icccm_size_hints_set_size(&hints, false, number(rect.width), number(rect.height));
        set(xcb_icccm_size_hints_set_min_size, least);
        set(xcb_icccm_size_hints_set_max_size, most);
        set(xcb_icccm_size_hints_set_resize_inc, increment);
        set(xcb_icccm_size_hints_set_base_size, base);
        if (leastAspect != Size{})
            xcb_icccm_size_hints_set_aspect(&hints, number(leastAspect.width),
                number(leastAspect.height), number(mostAspect.width), number(mostAspect.height));
        if (gravity != 0)
            xcb_icccm_size_hints_set_win_gravity(&hints, static_cast<xcb_gravity_t>(gravity));
        xcb_icccm_set_wm_normal_hints(m_connection.raw(), m_number, &hints);
    }
    void setNumbers(const char *name, const char *type, const QList<quint32> &values)
    {
        m_connection.setNumbers(m_number, name, type, values);
    }

    XConnection &m_connection;
    WindowRequest m_request;
    xcb_window_t m_number;
    std::optional<Time> m_shadowDue;
};

} // namespace corvane::desktop
