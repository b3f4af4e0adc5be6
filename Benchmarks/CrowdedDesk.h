#pragma once

#include "Rival.h"
#include "TestClient.h"
#include "WindowLayout.h"

namespace corvane::bench {

/// Windows of a few applications, and two layouts that give every one of them another place and
/// another size. The places are of one size however many there are.
class CrowdedDesk
{
public:
    explicit CrowdedDesk(desktop::VirtualDesktop &desktop);

    /// Opens windows until there are so many. False when they did not appear.
    [[nodiscard]] bool fill(int count);

    [[nodiscard]] const QList<xcb_window_t> &windows() const { return m_windows; }
    [[nodiscard]] static QString title(qsizetype window);
    [[nodiscard]] std::array<WindowLayout, 2> layouts() const;
    /// A goal for each window.
    [[nodiscard]] std::array<QList<Goal>, 2> goals() const;

private:
    desktop::VirtualDesktop &m_desktop;
    std::vector<std::unique_ptr<desktop::TestClient>> m_clients;
    QList<xcb_window_t> m_windows;
    Rect m_decoration; ///< around a client window: position and what it adds to the size
};

} // namespace corvane::bench
