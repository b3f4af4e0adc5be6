#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A panel along the top of the first display whose tray is in the right corner and shows status
/// items that are told of over the session bus. It ends with this object.
class PanelProcess
{
public:
    static constexpr int height = 30;

    /// Returns once the panel is on the desktop.
    [[nodiscard]] static expected<std::unique_ptr<PanelProcess>, QString> start(
        VirtualDesktop &desktop);

    /// Where the tray shows its only icon.
    [[nodiscard]] Rect iconPlace() const;
    /// Whether anything is drawn there.
    [[nodiscard]] bool showsIcon() const;
    [[nodiscard]] bool isRunning() { return m_process->isRunning(); }
    void stop();

private:
    explicit PanelProcess(VirtualDesktop &desktop);

    VirtualDesktop &m_desktop;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace corvane::desktop
