#include "AgentMailbox.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QJsonDocument>

#include <utility>

namespace corvane::kwin {

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QJsonObject &command)
{
    return QString::fromUtf8(QJsonDocument(command).toJson(QJsonDocument::Compact));
}

QString nothing()
{
    return textOf({{"number"_L1, QString()}, {"deed"_L1, u"nothing"_s}});
}

} // namespace

std::optional<QJsonObject> AgentMailbox::ask(QJsonObject command, Time deadline, Effect effect)
{
    QMutexLocker lock(&m_mutex);
    if (!m_isPresent)
        return std::nullopt;
    m_awaited = QString::number(++m_lastNumber);
    if (effect == Effect::some)
        m_lastChange = m_lastNumber;
    m_outcome.reset();
    command.insert("number"_L1, m_awaited);
    handOver(textOf(command));
    const QDeadlineTimer timer(deadline);
    while (!m_outcome && m_isPresent && m_news.wait(&m_mutex, timer)) { }
    m_awaited.clear();
    m_unsent.clear();
    return std::exchange(m_outcome, std::nullopt);
}

std::optional<QJsonObject> AgentMailbox::glance() const
{
    const QMutexLocker lock(&m_mutex);
    const bool isCurrent = !m_glance.isEmpty() && m_glanceAfter >= m_lastChange;
    return isCurrent ? std::optional(m_glance) : std::nullopt;
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

bool AgentMailbox::waitForFrames(Time deadline)
{
    const QMutexLocker lock(&m_mutex);
    const QDeadlineTimer timer(deadline);
    while (!m_framesChanged && m_isPresent && m_news.wait(&m_mutex, timer)) { }
    return std::exchange(m_framesChanged, false);
}

bool AgentMailbox::takeFrames()
{
    const QMutexLocker lock(&m_mutex);
    return std::exchange(m_framesChanged, false);
}

AgentMailbox::Arrival AgentMailbox::polled(
    const QString &number, const QString &answer, AnswerPoll answerPoll)
{
    const QMutexLocker lock(&m_mutex);
    m_isPresent = true;
    m_answerPoll = std::move(answerPoll);
    const bool isExpected = !number.isEmpty() && number == m_awaited;
    if (isExpected)
        m_outcome = QJsonDocument::fromJson(answer.toUtf8()).object();
    if (!m_unsent.isEmpty())
        handOver(std::exchange(m_unsent, {}));
    m_news.wakeAll();
    if (number.isEmpty())
        return Arrival::greeting;
    return isExpected ? Arrival::expected : Arrival::late;
}

bool AgentMailbox::renewPoll()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_answerPoll)
        return false;
    handOver(nothing());
    return true;
}

void AgentMailbox::framesChanged()
{
    const QMutexLocker lock(&m_mutex);
    m_framesChanged = true;
    m_news.wakeAll();
}

void AgentMailbox::glanced(quint64 performed, const QString &seen)
{
    const QJsonObject glance = QJsonDocument::fromJson(seen.toUtf8()).object();
    const QMutexLocker lock(&m_mutex);
    m_glanceAfter = performed;
    m_glance = glance;
}

void AgentMailbox::clear()
{
    const QMutexLocker lock(&m_mutex);
    m_glance = {};
    m_isPresent = false;
    m_framesChanged = false;
    m_answerPoll = nullptr;
    m_unsent.clear();
    m_news.wakeAll();
}

void AgentMailbox::handOver(QString command)
{
    if (const AnswerPoll answerPoll = std::exchange(m_answerPoll, nullptr))
        answerPoll(command);
    else
        m_unsent = std::move(command);
}

} // namespace corvane::kwin
