#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QMutex>
#include <QtCore/QStringList>
#include <QtCore/QWaitCondition>

#include <chrono>
#include <functional>
#include <optional>

namespace corvane::wayland {

/// Where the thread that asks the agent and the one that hears from it meet. The agent polls: a command
/// is the answer to its poll, and the next poll brings the outcome. What else it has to tell it tells at once.
/// Thread-safe.
class AgentMailbox final
{
public:
    using Time = std::chrono::steady_clock::time_point;
    /// `command` is a JSON object; `number` comes back with its outcome.
    using AnswerPoll = std::function<void(const QString &number, const QString &command)>;

    // For who asks:

    /// What the agent says to the command. Nothing where it is absent, or has not said it in time: then it
    /// may still do what it was told, unless it had not yet heard of it.
    [[nodiscard]] std::optional<QJsonObject> ask(const QString &command, Time deadline);
    [[nodiscard]] bool isPresent() const;
    /// Blocks until the agent is there. False once the time has come.
    [[nodiscard]] bool waitForAgent(Time deadline);
    /// Blocks while there is nothing to take. False once the time has come, or without an agent.
    [[nodiscard]] bool waitForNews(Time deadline);
    /// What the agent has told since this was called last. What has changed by the answer to a command is
    /// here by then.
    [[nodiscard]] QStringList takeNews();

    // For who hears:

    /// `number`: of the command whose outcome this is; empty for an agent's first poll. `news` may be empty.
    void polled(
        const QString &number, const QString &outcome, const QString &news, AnswerPoll answerPoll);
    /// Has the agent poll again; false where no poll is open.
    bool renewPoll();
    void told(const QString &news);
    /// The agent is gone.
    void clear();

private:
    struct Command {
        QString number;
        QString text;
    };

    void handOver(const Command &command);

    mutable QMutex m_mutex;
    QWaitCondition m_news;
    AnswerPoll m_answerPoll; ///< of the open poll
    quint64 m_lastNumber = 0;
    QString m_awaited; ///< number of the command whose outcome is waited for
    std::optional<Command> m_unsent; ///< waits for a poll
    std::optional<QJsonObject> m_outcome;
    QStringList m_untaken; ///< news
    bool m_isPresent = false;
};

} // namespace corvane::wayland
