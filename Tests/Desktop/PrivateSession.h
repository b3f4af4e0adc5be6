#pragma once

#include "ChildProcess.h"
#include "Expected.h"

#include <QtCore/QTemporaryDir>

#include <memory>

namespace corvane::desktop {

/// A user's session apart from the real one: a home and a session bus of its own, no display yet.
/// Everything that was started in it ends with it.
class PrivateSession
{
public:
    PrivateSession();
    ~PrivateSession();
    Q_DISABLE_COPY_MOVE(PrivateSession)

    /// Empty when the bus runs, else a sentence.
    [[nodiscard]] QString startBus();

    /// For programs in this session: bus, display, private folders, quiet toolkits.
    [[nodiscard]] const QProcessEnvironment &environment() const { return m_environment; }
    /// Sets one variable for the programs that are started from now on.
    void setVariable(const QString &name, const QString &value)
    {
        m_environment.insert(name, value);
    }
    [[nodiscard]] QString folder() const { return m_folder.path(); }
    [[nodiscard]] QString home() const { return folder() + QStringLiteral("/home"); }
    [[nodiscard]] QString configFolder() const { return home() + QStringLiteral("/.config"); }
    [[nodiscard]] QString dataFolder() const { return home() + QStringLiteral("/.local/share"); }
    /// Puts copies of the folder's files into the home; those of the window managers are there already.
    void addToHome(const QString &source);

    /// Of a program in this session; its output goes to "<program>.log" in the session's folder.
    [[nodiscard]] ChildProcess::Command command(const QString &program,
        const QStringList &arguments = {},
        ChildProcess::Channel channel = ChildProcess::Channel::log) const;
    [[nodiscard]] std::unique_ptr<ChildProcess> launch(const QString &program,
        const QStringList &arguments = {},
        ChildProcess::Channel channel = ChildProcess::Channel::log) const
    {
        return std::make_unique<ChildProcess>(command(program, arguments, channel));
    }
    /// Starts a program of this name that does nothing until it is asked to end.
    [[nodiscard]] std::unique_ptr<ChildProcess> launchIdle(const QString &name);
    /// Runs a program to its end. Whether it exited with 0.
    [[nodiscard]] bool run(const QString &program, const QStringList &arguments);
    /// Whatever runs in it.
    [[nodiscard]] QList<pid_t> processes() const;
    /// The end of every log, for a failed test's message.
    [[nodiscard]] QString logs(qsizetype bytesEach = 2000) const;

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::unique_ptr<ChildProcess> m_bus;
};

} // namespace corvane::desktop
