#pragma once

#include "ChildProcess.h"
#include "Expected.h"

#include <QtCore/QSize>

#include <memory>

namespace corvane::desktop {

/// An X server without hardware, on a display number that nobody else has.
class DisplayServer
{
public:
    enum class Kind {
        hotplug, ///< Xorg with the dummy driver: outputs come and go as real ones do
        framebuffer, ///< Xvfb: one screen of a fixed size
    };

    /// Files go into `folder`; a framebuffer comes without the named extensions. The error is a sentence
    /// with the end of the server's log.
    [[nodiscard]] static expected<std::unique_ptr<DisplayServer>, QString> start(Kind kind,
        const QString &folder, const QProcessEnvironment &environment, QSize size,
        const QStringList &without = {});

    [[nodiscard]] Kind kind() const { return m_kind; }
    [[nodiscard]] QString displayName() const { return m_displayName; }
    void suspend() { m_process.suspend(); }
    void resume() { m_process.resume(); }

private:
    DisplayServer(Kind kind, const ChildProcess::Command &command);

    Kind m_kind;
    ChildProcess m_process;
    QString m_displayName;
};

} // namespace corvane::desktop
