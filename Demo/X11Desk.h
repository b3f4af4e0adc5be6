#pragma once

#include "Desk.h"
#include "KeyPresser.h"
#include "TestClient.h"
#include "WindowManagerProcess.h"

namespace corvane::demo {

/// The desk on an X server, with a window manager and displays of different sizes.
class X11Desk final : public Desk
{
public:
    /// Without applications.
    [[nodiscard]] static expected<std::unique_ptr<Desk>, QString> begin(
        const QString &windowManager);
    ~X11Desk() override { closeApplications(); }

    QString name() const override { return m_windowManager->name(); }
    desktop::PrivateSession &session() override { return *m_desktop; }
    desktop::Keys &keys() override { return m_keys; }
    QList<Rect> displays() const override { return m_desktop->displays().displays(); }
    std::optional<Rect> frame(Window window) override { return m_probe.visibleFrame(window); }
    bool bringForward(Window window) override;
    bool fillDisplay(Window window) override;
    QString filling() const override { return QStringLiteral("maximised"); }

private:
    explicit X11Desk(std::unique_ptr<desktop::VirtualDesktop> desktop)
        : m_desktop(std::move(desktop))
    {
    }
    QString furnish() override;
    Window waitForWindow(pid_t pid) override;
    SizeLimits measureLimits(Window window) override;
    void put(Window window, const Rect &frame) override;
    QImage picture() override;

    std::unique_ptr<desktop::VirtualDesktop> m_desktop;
    desktop::WindowProbe m_probe{m_desktop->connection()};
    desktop::KeyPresser m_keys{m_desktop->connection()};
    std::unique_ptr<desktop::WindowManagerProcess> m_windowManager;
    std::unique_ptr<desktop::TestClient> m_panelOwner;
};

} // namespace corvane::demo
