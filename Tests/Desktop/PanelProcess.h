#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A panel along the top of the first display whose tray is in the right corner and shows status
/// items that are told of over the session bus. It ends with this object.
class PanelProcess : public ChildProcess
{
public:
    /// Returns once the panel is on the desktop and shows an icon.
    [[nodiscard]] static expected<std::unique_ptr<PanelProcess>, QString> start(
        VirtualDesktop &desktop)
    {
        desktop.paintBackground();
        std::unique_ptr<PanelProcess> panel(new PanelProcess(desktop));
        if (!waitUntil([&] { return panel->showsIcon(); }, Milliseconds{30000}))
            return unexpected<QString>(
                QStringLiteral("the panel shows no icon:\n") + desktop.logs());
        return panel;
    }

    /// Where the tray shows its only icon.
    [[nodiscard]] Rect iconPlace() const
    {
        const Rect display = m_desktop.displays().displays().first();
        return {display.maxX() - height, display.y, height, height - 1};
    }
    /// Whether anything is drawn there.
    [[nodiscard]] bool showsIcon() const
    {
        const QByteArray pixels = pixelsOn(m_desktop.connection(), iconPlace());
        constexpr int bytesPerPixel = 4;
        qsizetype drawn = 0;
        for (qsizetype at = 0; at < pixels.size(); at += bytesPerPixel)
            drawn += pixels.mid(at, bytesPerPixel) != pixels.left(bytesPerPixel);
        return drawn > height;
    }

private:
    static constexpr int height = 30; // as in xfce4-panel.xml

    explicit PanelProcess(VirtualDesktop &desktop)
        : ChildProcess(
            desktop.command(QStringLiteral("xfce4-panel"), {QStringLiteral("--disable-wm-check")}))
        , m_desktop(desktop)
    {
    }

    VirtualDesktop &m_desktop;
};

} // namespace corvane::desktop
