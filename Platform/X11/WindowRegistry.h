#pragma once

#include "Connection.h"
#include "Rect.h"
#include "WindowElement.h"
#include "WindowNames.h"
#include "WindowSnapshot.h"

#include <QtCore/QHash>

#include <optional>
#include <sys/types.h>

namespace corvane::x11 {

/// The server's number of the window.
[[nodiscard]] inline xcb_window_t numberOf(const WindowElement &window)
{
    return static_cast<xcb_window_t>(window.number);
}

/// Space that a panel reserves along an edge of the whole desk (_NET_WM_STRUT_PARTIAL).
struct Strut {
    enum class Edge { left, right, top, bottom };

    Edge edge = Edge::left;
    double depth = 0; ///< from the edge of the desk
    double start = 0; ///< along the edge, inclusive
    double end = 0;

    bool operator==(const Strut &) const = default;
};

/// What is known of a window: what stays true for as long as it lives, its names, and the space
/// that it reserves as a panel.
struct KnownWindow {
    quint64 generation = 0;
    pid_t pid = 0; ///< below zero: stands for an application without a process here
    QString machine; ///< that the client names as its own; mostly this one
    WindowNames names;
    QStringList formerNames; ///< classes and instances that it has had
    WindowKind kind = WindowKind::standard;
    bool inTaskbar = false; ///< when it was first seen
    bool wasListed = false; ///< by the window manager, at some time
    QList<Strut> struts;
};

/// The managed windows that have been seen, each from its first sight to its destruction. A window
/// number that comes round again gets a new generation.
class WindowRegistry final : public QObject, private EventSink
{
    Q_OBJECT

public:
    explicit WindowRegistry(Connection &connection);
    ~WindowRegistry() override;

    /// The window's identity; a window that is new is read first. Nothing when it is gone, or when
    /// a new one does not answer.
    [[nodiscard]] std::optional<WindowElement> element(xcb_window_t window);
    /// Null when the window is gone, or its number belongs to another one now.
    [[nodiscard]] const KnownWindow *find(const WindowElement &element) const;
    [[nodiscard]] const QHash<xcb_window_t, KnownWindow> &known() const { return m_known; }
    /// The windows in the window manager's client list, as it was told last.
    [[nodiscard]] const QList<xcb_window_t> &clients() const { return m_clients; }
    /// The space that the managed windows reserve.
    [[nodiscard]] const QList<Strut> &struts() const { return m_struts; }
    /// A number that changes whenever a listed window has come, gone, or changed its state.
    [[nodiscard]] quint64 statesRevision() const { return m_statesRevision; }
    /// The managed windows, front to back, as they are now.
    [[nodiscard]] QList<xcb_window_t> frontToBack();

    /// Reads the client list again now, as at start.
    void refresh();

Q_SIGNALS:
    /// Windows that are new in the client list; sent from inside the back end.
    void appeared(const QList<corvane::WindowElement> &windows);
    /// We are giving this window the focus.
    void activating(xcb_window_t window);
    /// The window has other names now; sent from inside the back end.
    void renamed(const corvane::WindowElement &window, const corvane::x11::WindowNames &before);
    void destroyed(const corvane::WindowElement &window, const corvane::x11::KnownWindow &known);
    void strutsChanged();

private:
    void handle(const xcb_generic_event_t &event) override;
    void handleProperty(const xcb_property_notify_event_t &event);
    void scheduleRefresh();
    void meet(const QList<xcb_window_t> &windows);
    [[nodiscard]] pid_t applicationWithoutProcess(const KnownWindow &window);
    void scheduleNames(xcb_window_t window);
    void refreshNames(const QList<xcb_window_t> &windows);
    void refreshStruts();
    void gatherStruts();

    Connection &m_connection;
    QHash<xcb_window_t, KnownWindow> m_known;
    QList<xcb_window_t> m_clients;
    QList<Strut> m_struts;
    QList<xcb_window_t> m_renamed; ///< their names are to be read again
    quint64 m_lastGeneration = 0;
    quint64 m_statesRevision = 1;
    pid_t m_lastWithoutProcess = -1; // which itself would be every process, to kill(2)
    bool m_refreshScheduled = false;
    bool m_strutsScheduled = false;
};

} // namespace corvane::x11
