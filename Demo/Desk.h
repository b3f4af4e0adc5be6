#pragma once

#include "Applications.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"

#include <QtCore/QHash>

namespace corvane::demo {

/// Two displays of different sizes, a panel, a window manager, and the applications somewhere on
/// top of each other.
class Desk
{
public:
    /// The error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<Desk>, QString> start(
        const QString &windowManager);

    [[nodiscard]] desktop::VirtualDesktop &desktop() { return *m_desktop; }
    [[nodiscard]] desktop::XConnection &connection() { return m_desktop->connection(); }
    [[nodiscard]] xcb_window_t window(Application application) const;
    /// The displays without the panel.
    [[nodiscard]] QList<Rect> areas() const;
    /// Puts the windows on top of each other, as they stand before anybody tidies up.
    void strew();
    [[nodiscard]] const QList<Rect> &displays() const { return m_desktop->displays().displays(); }

private:
    explicit Desk(std::unique_ptr<desktop::VirtualDesktop> desktop);
    [[nodiscard]] QString showPanel();
    [[nodiscard]] QString openApplications();
    void leafToDevices();

    std::unique_ptr<desktop::VirtualDesktop> m_desktop;
    std::unique_ptr<desktop::WindowManagerProcess> m_windowManager;
    std::unique_ptr<desktop::TestClient> m_panelOwner;
    std::vector<std::unique_ptr<desktop::ChildProcess>> m_processes;
    QHash<Application, xcb_window_t> m_windows;
};

} // namespace corvane::demo
