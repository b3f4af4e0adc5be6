#pragma once

#include "QuietOpenings.h"
#include "WindowedApplications.h"

namespace corvane::wayland {

/// The applications behind the windows that the compositor tells of.
class WaylandApplications final : public freedesktop::WindowedApplications
{
    Q_OBJECT

public:
    explicit WaylandApplications(ToplevelRegistry &registry);

    std::optional<RunningApplication> applicationOf(const WindowElement &window) override;
    QStringList formerIdentifiers(const WindowElement &window) override;
    std::optional<RunningApplication> frontmost() override;

    /// We are giving this window the focus.
    void allowFocus(const WindowElement &window) { m_openings.allow(window); }

private:
    void defer(std::function<void()> action) override;
    std::optional<bool> closeWindows(pid_t pid) override;
    void expect(const QString &bundleIdentifier) override { m_openings.begin(bundleIdentifier); }
    void review() override;
    void greet(const Toplevel &window);

    ToplevelRegistry &m_registry;
    QuietOpenings m_openings;
};

} // namespace corvane::wayland
