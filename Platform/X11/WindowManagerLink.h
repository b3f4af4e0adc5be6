#pragma once

#include "Connection.h"

#include <QtCore/QSet>
#include <QtCore/QString>

namespace corvane::x11 {

/// The window manager that runs now, if any: whether it does what an EWMH pager asks for, and when
/// it has done it.
class WindowManagerLink final : public QObject, private EventSink
{
    Q_OBJECT

public:
    explicit WindowManagerLink(Connection &connection);
    ~WindowManagerLink() override;

    /// Whether there is one that moves windows at our request.
    [[nodiscard]] bool isPresent() const { return m_present; }
    /// A window of the window manager's own.
    [[nodiscard]] xcb_window_t window() const { return m_checkWindow; }
    [[nodiscard]] bool supports(Atom atom) const
    {
        return m_supported.contains(m_connection.atom(atom));
    }
    /// Whether it lets tiled windows be neither moved nor resized.
    [[nodiscard]] bool tilesWindows() const { return m_tiles; }

    /// Whether it tiles windows without a state that says so, and lets them go only through another
    /// state.
    [[nodiscard]] bool tilesSilently() const { return m_tilesSilently; }

    /// Whether it holds a window's visible frame where it is when the client changes its shadow;
    /// other window managers hold the client's rectangle.
    [[nodiscard]] bool holdsFrames() const { return m_holdsFrames; }

    /// Waits until the window manager has done all that was asked of it for `window` before.
    /// False when it has not answered by `deadline`.
    [[nodiscard]] bool fence(xcb_window_t window, Connection::Clock::time_point deadline);
    /// Whether what passes the fence is always its own answer. The other kind of fence may take the
    /// answer to an earlier request for its own.
    [[nodiscard]] bool fencesExactly() const { return m_answersExtents; }

Q_SIGNALS:
    /// It came, went, or was replaced; sent from inside the back end.
    void changed();

private:
    void handle(const xcb_generic_event_t &event) override;
    [[nodiscard]] bool announces(const xcb_property_notify_event_t &property) const;
    void reexamineSoon();
    void examine();
    [[nodiscard]] xcb_window_t validCheckWindow();
    void renewProbe();
    void askForExtents();

    Connection &m_connection;
    xcb_window_t m_probe = noWindow; ///< ours, never shown: what the fence is asked about
    xcb_window_t m_checkWindow = noWindow;
    QSet<quint32> m_supported;
    QString m_name;
    bool m_present = false;
    bool m_tiles = false;
    bool m_tilesSilently = false;
    bool m_holdsFrames = false;
    bool m_examineScheduled = false;

    bool m_answersExtents = false; ///< known to be false only once the probe has ended
    Connection::Clock::time_point m_probeEnd;
    int m_extentsAsked = 0;
    int m_extentsAnswered = 0;
    xcb_window_t m_fenced = noWindow;
    bool m_fencePassed = false;
};

} // namespace corvane::x11
