#pragma once

#include "Desk.h"
#include "Scenery.h"
#include "WaylandDesktop.h"

namespace corvane::demo {

/// The desk on a Wayland compositor.
class WaylandDesk final : public Desk
{
public:
    /// Without applications. Desktop: "sway" or "kwin".
    [[nodiscard]] static expected<std::unique_ptr<Desk>, QString> begin(const QString &desktop);
    ~WaylandDesk() override { closeApplications(); }

    QString name() const override
    {
        return m_desktop->isSway() ? QStringLiteral("sway") : QStringLiteral("KWin on Wayland");
    }
    desktop::PrivateSession &session() override { return *m_desktop; }
    desktop::Keys &keys() override { return m_desktop->keys(); }
    QList<Rect> displays() const override { return m_displays; }
    std::optional<Rect> frame(Window window) override;
    bool bringForward(Window window) override;
    bool fillDisplay(Window window) override;
    QString filling() const override
    {
        return m_desktop->isSway() ? QStringLiteral("tiled") : QStringLiteral("maximised");
    }

private:
    WaylandDesk(std::unique_ptr<desktop::WaylandDesktop> desktop, const QList<Rect> &displays)
        : m_desktop(std::move(desktop)), m_displays(displays)
    {
    }
    QString furnish() override;
    QStringList command(const Terminal &terminal) const override;
    Window waitForWindow(pid_t pid) override
    {
        return m_desktop->hand().waitForWindow(pid, {}, desktop::Milliseconds{20000});
    }
    /// By trying, since compositors do not tell all of them.
    SizeLimits measureLimits(Window window) override;
    [[nodiscard]] Size sizeTaken(Window window, Size asked);
    void put(Window window, const Rect &frame) override
    {
        static_cast<void>(m_desktop->hand().putAt(window, frame));
    }
    QImage picture() override;

    std::unique_ptr<desktop::WaylandDesktop> m_desktop;
    QList<Rect> m_displays;
    std::unique_ptr<Scenery> m_scenery;
};

} // namespace corvane::demo
