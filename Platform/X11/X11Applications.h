#pragma once

#include "QuietOpenings.h"
#include "WindowedApplications.h"
#include "WindowRegistry.h"

namespace corvane::x11 {

/// The processes behind the managed windows, and the applications that they are; an application on
/// another machine has a stand-in for its process.
class X11Applications final : public freedesktop::WindowedApplications
{
    Q_OBJECT

public:
    X11Applications(Connection &connection, WindowRegistry &registry);

    std::optional<RunningApplication> applicationOf(const WindowElement &window) override;
    QStringList formerIdentifiers(const WindowElement &window) override;
    std::optional<RunningApplication> frontmost() override;

private:
    void defer(std::function<void()> action) override;
    std::optional<bool> closeWindows(pid_t pid) override;
    void expect(const QString &bundleIdentifier) override { m_openings.begin(bundleIdentifier); }
    void review() override;

    void meet(const QList<WindowElement> &windows);
    void follow(const WindowElement &window, const WindowNames &before);
    void lose(const WindowElement &window, const KnownWindow &known);
    void greet(const WindowElement &window);

    Connection &m_connection;
    WindowRegistry &m_registry;
    QuietOpenings m_openings;
    quint64 m_reviewed = 0; ///< the revision of the windows' states that regularity is known for
};

} // namespace corvane::x11
