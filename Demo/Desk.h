#pragma once

#include "TestClient.h"
#include "WindowManagerProcess.h"

#include <array>

namespace corvane::demo {

/// The programs that are open on the demonstration's desk.
enum class Application { terminal, source, notes, gallery, icons };

inline constexpr std::array applications{Application::terminal, Application::source,
    Application::notes, Application::gallery, Application::icons};

[[nodiscard]] QString title(Application application);

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
    [[nodiscard]] const QList<Rect> &displays() const { return m_desktop->displays().displays(); }
    /// The displays without the panel.
    [[nodiscard]] QList<Rect> areas() const;
    [[nodiscard]] xcb_window_t window(Application application) const
    {
        return m_windows.value(application);
    }
    /// Puts the windows on top of each other, as they stand before anybody tidies up.
    void strew();

private:
    explicit Desk(std::unique_ptr<desktop::VirtualDesktop> desktop) : m_desktop(std::move(desktop))
    {
    }
    /// Empty when all is there, else a sentence.
    [[nodiscard]] QString furnish(const QString &windowManager);
    [[nodiscard]] QString openApplications();

    std::unique_ptr<desktop::VirtualDesktop> m_desktop;
    std::unique_ptr<desktop::WindowManagerProcess> m_windowManager;
    std::unique_ptr<desktop::TestClient> m_panelOwner;
    std::vector<std::unique_ptr<desktop::ChildProcess>> m_processes;
    QHash<Application, xcb_window_t> m_windows;
};

} // namespace corvane::demo
