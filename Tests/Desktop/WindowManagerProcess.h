#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A window manager running on a virtual desktop. It ends with this object, which must not outlive
/// the desktop.
class WindowManagerProcess
{
public:
    enum class Takeover {
        none, ///< no other one is running
        replace, ///< asks the running one to give up
    };

    /// `name` is one of `names()`. Returns once the window manager has announced itself and adopts
    /// windows; the error is a sentence.
    [[nodiscard]] static expected<std::unique_ptr<WindowManagerProcess>, QString> start(
        VirtualDesktop &desktop, const QString &name, Takeover takeover = Takeover::none);
    /// The nine target window managers, "i3-tiling", and "fluxbox-tray", whose toolbar takes icons in.
    [[nodiscard]] static QStringList names();
    [[nodiscard]] static bool canReplace(const QString &name);

    ~WindowManagerProcess();

    [[nodiscard]] QString name() const { return m_name; }
    [[nodiscard]] bool isRunning() { return m_process->isRunning(); }
    /// Ends it and returns once nothing announces a window manager any more.
    void stop();
    /// As `stop`, but it gets no chance to tidy up: what it announced stays on the root window.
    void crash();
    void suspend() { m_process->suspend(); }
    void resume() { m_process->resume(); }

private:
    WindowManagerProcess(VirtualDesktop &desktop, QString name);

    VirtualDesktop &m_desktop;
    QString m_name;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace corvane::desktop
