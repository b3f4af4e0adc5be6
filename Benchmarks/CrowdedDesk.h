#pragma once

#include "Crowd.h"
#include "Rival.h"
#include "TestClient.h"

namespace corvane::bench {

/// A crowd of windows of a few applications.
class CrowdedDesk
{
public:
    explicit CrowdedDesk(desktop::VirtualDesktop &desktop);

    /// Opens windows until there are so many. False when they did not appear.
    [[nodiscard]] bool fill(int count);

    [[nodiscard]] const QList<xcb_window_t> &windows() const { return m_windows; }
    [[nodiscard]] const Crowd &crowd() const { return m_crowd; }
    /// A goal for each window.
    [[nodiscard]] std::array<QList<Goal>, 2> goals() const;

private:
    desktop::VirtualDesktop &m_desktop;
    std::vector<std::unique_ptr<desktop::TestClient>> m_clients;
    QList<xcb_window_t> m_windows;
    Crowd m_crowd;
    Rect m_decoration; ///< around a client window: position and what it adds to the size
};

} // namespace corvane::bench
