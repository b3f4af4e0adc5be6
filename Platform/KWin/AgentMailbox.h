#pragma once

#include <QtCore/QJsonObject>
#include <QtCore/QMutex>
#include <QtCore/QString>
#include <QtCore/QWaitCondition>

#include <chrono>
#include <functional>
#include <optional>

namespace corvane::kwin {

/// Where the thread that asks the agent and the one that hears from it meet. The agent polls: a command
/// is the answer to its poll, and the next poll brings the outcome. Thread-safe.
class AgentMailbox final
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using AnswerPoll = std::function<void(const QString &command)>;

    /// What has become of a poll's tidings.
    enum class Arrival {
        greeting, ///< a poll without an outcome
        expected,
        late, ///< nobody waits for this outcome any more
    };

    // For who asks:

    /// What the agent says to the command. Nothing where it is absent, or has not said it in time: then it
    /// may still do what it was told, unless it had not yet heard of it.
    /// `Effect::none`: the desk stays as it is.
    enum class Effect { none, some };
    [[nodiscard]] std::optional<QJsonObject> ask(
        QJsonObject command, Time deadline, Effect effect = Effect::some);
    /// The window that has the focus and the work areas, as the agent told them when they changed last.
    /// Nothing where a command may have changed them since.
    [[nodiscard]] std::optional<QJsonObject> glance() const;
    [[nodiscard]] bool isPresent() const;
    /// Blocks until the agent is there. False once the time has come.
    [[nodiscard]] bool waitForAgent(Time deadline);
    /// Blocks until the agent tells of a new frame. False once the time has come, or without an agent.
    [[nodiscard]] bool waitForFrames(Time deadline);
    /// Whether the agent has told of new frames since anything was asked of it; forgets it.
    [[nodiscard]] bool takeFrames();

    // For who hears:

    Arrival polled(const QString &number, const QString &answer, AnswerPoll answerPoll);
    /// Has the agent poll again; false where no poll is open.
    bool renewPoll();
    void framesChanged();
    /// `performed`: the number of the command that the agent had carried out last.
    void glanced(quint64 performed, const QString &seen);
    /// The agent is gone.
    void clear();

private:
    void handOver(QString command);

    mutable QMutex m_mutex;
    QWaitCondition m_news;
    AnswerPoll m_answerPoll; ///< of the open poll
    quint64 m_lastNumber = 0;
    quint64 m_lastChange = 0; ///< number of the last command with an effect
    quint64 m_glanceAfter = 0;
    QJsonObject m_glance; ///< empty: there is none
    QString m_awaited; ///< number of the command whose outcome is waited for
    QString m_unsent; ///< command that waits for a poll
    std::optional<QJsonObject> m_outcome;
    bool m_isPresent = false;
    bool m_framesChanged = false;
};

} // namespace corvane::kwin
