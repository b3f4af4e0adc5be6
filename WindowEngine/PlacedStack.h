#pragma once

#include "AXWindow.h"
#include "Clock.h"

#include <QtCore/QMap>
#include <QtCore/QSet>

namespace corvane {

/// The windows that one apply has placed, as they are to lie on top of each other.
class PlacedStack final
{
public:
    [[nodiscard]] bool isEmpty() const { return m_windows.isEmpty(); }
    /// Remembers which window has the focus, while the user waits for the first window.
    void rememberFocus();
    /// A higher rank lies nearer to the front.
    void add(qsizetype rank, const AXWindow &window);
    /// The window of this rank has closed, and another one may come in its stead.
    void remove(qsizetype rank);
    /// Puts the windows added since the last time where they belong. The first ones come forward, and
    /// the front one gets the focus, unless the user has gone elsewhere meanwhile; later ones join
    /// without it. Processes that let a request time out are asked nothing.
    void arrange(const QSet<pid_t> &unanswering);
    /// To be called for a while after that: a window that has just come may take the focus by itself,
    /// and the front one gets it back. A button of the pointer that is down is the user's choice.
    void returnFocus(bool isButtonDown);

private:
    [[nodiscard]] bool isElsewhere(const std::optional<AXWindow> &focused) const;
    [[nodiscard]] bool isTakenByLate(const std::optional<AXWindow> &focused) const;
    void join(const std::optional<AXWindow> &focused) const;
    void bringForward(const AXWindow &window) const;
    void raise(const AXWindow &window) const;

    QMap<qsizetype, AXWindow> m_windows; ///< by rank
    QList<qsizetype> m_added;
    QList<qsizetype> m_late; ///< those that joined a moment ago
    Clock::Duration m_lateUntil{};
    std::optional<AXWindow> m_focusBefore;
    QSet<pid_t> m_unanswering;
};

} // namespace corvane
