#pragma once

#include "Hand.h"
#include "SwayIpc.h"

namespace corvane::desktop {

/// The hand on sway. The first display is there for good; each further one is a window of another sway,
/// in which this one shows it, and closing that unplugs it.
class SwayHand final : public Hand
{
public:
    SwayHand(const QString &socket, const QString &outerSocket)
        : m_sway(socket), m_outer(outerSocket)
    {
    }

    [[nodiscard]] const SwayIpc &ipc() const { return m_sway; }

    QList<SeenWindow> windows() override;
    void activate(quint32 window) override { command(window, "focus"); }
    void close(quint32 window) override { command(window, "kill"); }
    void setMinimized(quint32 window, bool isMinimized) override
    {
        command(window, isMinimized ? "move scratchpad" : "focus");
    }
    void setMaximized(quint32, bool) override { }
    void setFullScreen(quint32 window, bool isFullScreen) override
    {
        command(window, isFullScreen ? "fullscreen enable" : "fullscreen disable");
    }
    void tile(quint32 window) override { command(window, "floating disable"); }
    void moveElsewhere(quint32 window) override
    {
        command(window, "move container to workspace elsewhere");
    }
    void place(quint32 window, const Rect &frame) override;

    [[nodiscard]] bool arrange(const QList<Rect> &displays) override;
    [[nodiscard]] bool setScale(int display, double scale) override;
    [[nodiscard]] QList<Rect> displays() override;

private:
    void command(quint32 window, const QString &what) const
    {
        m_sway.command(QStringLiteral("[con_id=%1] %2").arg(window).arg(what));
    }
    void command(quint32 window, const char *what) const
    {
        command(window, QString::fromLatin1(what));
    }
    /// Those that are plugged in, the first one first, then oldest first.
    [[nodiscard]] QStringList outputs() const;
    void plug(const Rect &display);
    void resize(const QString &output, Size size);
    void unplug(const QString &output);

    SwayIpc m_sway;
    SwayIpc m_outer;
    int m_plugged = 0; ///< how many displays have ever been plugged in; their names count them
};

} // namespace corvane::desktop
