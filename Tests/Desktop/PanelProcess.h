#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A panel along the top of the first display whose tray is in the right corner and shows status
/// items that are told of over the session bus. It ends with this object.
class PanelProcess : public ChildProcess
{
public:
    /// Returns once the panel is on the desktop.
    [[nodiscard]] static expected<std::unique_ptr<PanelProcess>, QString> start(
        VirtualDesktop &desktop);

    /// Where the tray shows its only icon.
    [[nodiscard]] Rect iconPlace() const;
    /// Whether anything is drawn there.
    [[nodiscard]] bool showsIcon() const;

private:
    explicit PanelProcess(VirtualDesktop &desktop)
        : ChildProcess(
            desktop.command(QStringLiteral("xfce4-panel"), {QStringLiteral("--disable-wm-check")}))
        , m_desktop(desktop)
    {
    }

    VirtualDesktop &m_desktop;
};

} // namespace corvane::desktop
