#pragma once

#include "VirtualDesktop.h"

namespace corvane::desktop {

/// A window manager running on a virtual desktop. It ends with this object, which must not outlive
/// the desktop. The files in `home` keep it from asking first-run questions, showing panels of its own
/// and binding our keys; Super+Left tiles a window on the left where it can.
class WindowManagerProcess : public ChildProcess
{
public:
    /// Returns once the window manager has announced itself and adopts windows; the error is a
    /// sentence.
    [[nodiscard]] static expected<std::unique_ptr<WindowManagerProcess>, QString> start(
        VirtualDesktop &desktop, const QString &name);

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
    void awaitItsEnd()
    {
        WindowProbe probe(m_desktop.connection());
        static_cast<void>(waitUntil([&] { return probe.windowManagerName().isEmpty(); }));
    }

    VirtualDesktop &m_desktop;
    QString m_name;
};

} // namespace corvane::desktop
