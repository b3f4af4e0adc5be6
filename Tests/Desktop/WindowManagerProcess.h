#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A window manager running on a virtual desktop. It ends with this object, which must not outlive
/// the desktop. The files in `home` keep it from asking first-run questions, showing panels of its own
/// and binding our keys; Super+Left tiles a window on the left where it can.
class WindowManagerProcess : public ChildProcess
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
    /// The nine target window managers, and "fluxbox-tray", whose toolbar takes icons in.
    [[nodiscard]] static QStringList names();
    [[nodiscard]] static bool canReplace(const QString &name);

    [[nodiscard]] QString name() const { return m_name; }
    /// Ends it and returns once nothing announces a window manager any more.
    void stop()
    {
        ChildProcess::stop();
        awaitItsEnd();
    }
    /// As `stop`, but it gets no chance to tidy up: what it announced stays on the root window.
    void crash()
    {
        kill();
        awaitItsEnd();
    }

private:
    WindowManagerProcess(VirtualDesktop &desktop, QString name, const Command &command)
        : ChildProcess(command), m_desktop(desktop), m_name(std::move(name))
    {
    }
    void awaitItsEnd();

    VirtualDesktop &m_desktop;
    QString m_name;
};

} // namespace corvane::desktop
