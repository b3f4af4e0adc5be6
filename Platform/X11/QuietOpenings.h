#pragma once

#include "WindowRegistry.h"

namespace corvane::x11 {

/// Stops the windows of applications that we open from taking the focus and from demanding
/// attention. The startup id asks for both, but many programs do not pass it on, and many window
/// managers take it for a reason to call the user; so both are put right afterwards, for a moment
/// after a window came.
class QuietOpenings final : public QObject, private EventSink
{
public:
    QuietOpenings(Connection &connection, WindowRegistry &registry);
    ~QuietOpenings() override;

    /// To be called before the application is asked to show a window.
    void begin(const QString &bundleIdentifier);
    [[nodiscard]] bool areUnderWay();
    /// The application has a window that is new, or has just turned out to be its.
    void greet(const WindowElement &window, const QString &bundleIdentifier);

private:
    using Time = Connection::Clock::time_point;

    struct Opening {
        QString bundleIdentifier;
        Time end;
    };
    struct Newcomer {
        xcb_window_t window = noWindow;
        Time end;
        Time focusEnd;
        bool mayHaveFocus = false; ///< by our own wish
        // So many are answered: a program, or its window manager, may insist.
        int focusesLeft = 3;
        int attentionsLeft = 3;
    };

    void handle(const xcb_generic_event_t &event) override;
    void scheduleReview();
    void review();
    void reviewFocus(xcb_window_t active);
    void forgetPast();
    [[nodiscard]] Newcomer *newcomer(xcb_window_t window);
    void addOwner(xcb_window_t window);

    Connection &m_connection;
    WindowRegistry &m_registry;
    QList<Opening> m_openings;
    QList<Newcomer> m_newcomers;
    QList<xcb_window_t> m_owners; ///< that had the focus by right, the latest last
    bool m_reviewScheduled = false;
};

} // namespace corvane::x11
