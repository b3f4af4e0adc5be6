#include "AgentMailbox.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QJsonDocument>

#include <utility>

namespace corvane::wayland {

using namespace Qt::StringLiterals;

std::optional<QJsonObject> AgentMailbox::ask(const QString &command, Time deadline)
{
    QMutexLocker lock(&m_mutex);
    if (!m_isPresent)
        return std::nullopt;
    m_awaited = QString::number(++m_lastNumber);
    m_outcome.reset();
    handOver({m_awaited, command});
    const QDeadlineTimer timer(deadline);
    while (!m_outcome && m_isPresent && m_news.wait(&m_mutex, timer)) { }
    m_awaited.clear();
    m_unsent.reset();
    return std::exchange(m_outcome, std::nullopt);
}

bool AgentMailbox::isPresent() const
{
    const QMutexLocker lock(&m_mutex);
    return m_isPresent;
}

bool AgentMailbox::waitForAgent(Time deadline)
{
    const QMutexLocker lock(&m_mutex);
    const QDeadlineTimer timer(deadline);
    while (!m_isPresent && m_news.wait(&m_mutex, timer)) { }
    return m_isPresent;
}

bool AgentMailbox::waitForNews(Time deadline)
{
    const QMutexLocker lock(&m_mutex);
    const QDeadlineTimer timer(deadline);
    while (m_untaken.isEmpty() && m_isPresent && m_news.wait(&m_mutex, timer)) { }
    return !m_untaken.isEmpty();
}

QStringList AgentMailbox::takeNews()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_untaken, {});
}

void AgentMailbox::polled(
    const QString &number, const QString &outcome, const QString &news, AnswerPoll answerPoll)
{
    const QMutexLocker lock(&m_mutex);
    m_isPresent = true;
    m_answerPoll = std::move(answerPoll);
    if (!news.isEmpty())
        m_untaken << news;
    // Nobody waits any more for an outcome that comes too late.
    if (!number.isEmpty() && number == m_awaited)
        m_outcome = QJsonDocument::fromJson(outcome.toUtf8()).object();
    if (const auto command = std::exchange(m_unsent, std::nullopt))
        handOver(*command);
    m_news.wakeAll();
}

bool AgentMailbox::renewPoll()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_answerPoll)
        return false;
    handOver({{}, u"{\"deed\":\"nothing\"}"_s});
    return true;
}

void AgentMailbox::told(const QString &news)
{
    const QMutexLocker lock(&m_mutex);
    m_untaken << news;
    m_news.wakeAll();
}

void AgentMailbox::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_untaken.clear();
    m_isPresent = false;
    m_answerPoll = nullptr;
    m_unsent.reset();
    m_news.wakeAll();
}

void AgentMailbox::handOver(const Command &command)
{
    if (const AnswerPoll answerPoll = std::exchange(m_answerPoll, nullptr))
        answerPoll(command.number, command.text);
    else
        m_unsent = command;
}

} // namespace corvane::wayland
