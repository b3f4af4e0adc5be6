#pragma once

#include "PrivateSession.h"
#include "Rect.h"

#include <QtCore/QJsonObject>

namespace corvane::desktop {

/// Adds to the settings of a session's user, whatever else they say, that the tour is over.
void endTour(const PrivateSession &session);

/// The program itself, resident in a session and asked over the session bus.
class CorvaneProcess
{
public:
    /// What one call of the program came to.
    struct Answer {
        std::optional<int> exitStatus; ///< nothing when it did not end in time, or crashed
        QJsonObject outcome{}; ///< of a call with `--json`
        QByteArray output{};
        QByteArray errors{};

        /// Such as "moved".
        [[nodiscard]] QString name() const { return outcome[u"outcome"].toString(); }
        /// Empty when the window moved.
        [[nodiscard]] QString reason() const { return outcome[u"reason"].toString(); }
        [[nodiscard]] Rect to() const
        {
            const QJsonValue to = outcome[u"to"];
            return {to[0].toDouble(), to[1].toDouble(), to[2].toDouble(), to[3].toDouble()};
        }
    };

    CorvaneProcess(PrivateSession &session, QString program)
        : m_session(session), m_program(std::move(program))
    {
    }

    enum class Tour { seen, unseen };

    /// Starts the resident process; true once its hot keys are live. Its user has seen the tour by then,
    /// unless said otherwise.
    [[nodiscard]] bool start(Tour tour = Tour::seen);
    void stop()
    {
        if (m_process)
            m_process->stop();
    }
    [[nodiscard]] bool isRunning() { return m_process && m_process->isRunning(); }
    [[nodiscard]] pid_t pid() const { return m_process->pid(); }

    /// Runs `corvane --place <placement> --json` to its end.
    [[nodiscard]] Answer place(const QString &placement)
    {
        return ask({QStringLiteral("--place"), placement, QStringLiteral("--json")});
    }
    /// Runs the program with these arguments to its end.
    [[nodiscard]] Answer ask(const QStringList &arguments, Milliseconds deadline = patience);

    /// What the resident process has written, whole lines only.
    [[nodiscard]] QStringList log() const;
    [[nodiscard]] QString readyLine() const;
    /// Waits for a line after the first `seen` ones that contains the text.
    [[nodiscard]] bool waitForLog(
        const QString &text, qsizetype seen = 0, Milliseconds deadline = patience) const;

    [[nodiscard]] qint64 residentKilobytes() const;
    [[nodiscard]] qsizetype openFiles() const;

private:
    PrivateSession &m_session;
    QString m_program;
    std::unique_ptr<ChildProcess> m_process;
    qsizetype m_logStart = 0; ///< the log is shared by every run on the desktop
};

} // namespace corvane::desktop
